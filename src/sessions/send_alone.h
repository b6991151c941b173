#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Sends the PBX link table alone, section 37, to versions from 101 on. */
bool SendLinkTable(Transfer& transfer);
/** Sends the exchange's new IP address alone, section 44, to versions from 101 on. */
bool SendIpAddress(Transfer& transfer);

}  // namespace tarvok::sessions
