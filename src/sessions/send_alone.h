#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Sends only the PBX link table, section 37, to versions from 101 on. */
bool SendLinkTable(Transfer& transfer);
/** Sends only the exchange's new IP address, section 44, to versions from 101 on. */
bool SendIpAddress(Transfer& transfer);

}  // namespace tarvok::sessions
