#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Sends every section of the project that the exchange's version has, in order; with the compare switch on,
 * and to versions that have it, each is read back and compared. True when all arrived and the exchange is
 * back in normal mode; otherwise Transfer::reason tells why not. After a section that failed the exchange
 * stays in configuration mode with what it got. Of the project only the compare box is written. */
bool SendConfiguration(Transfer& transfer);

}  // namespace tarvok::sessions
