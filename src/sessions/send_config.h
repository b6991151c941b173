#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * Sends every section of the project that the exchange's version has, in order. With the compare switch on,
 * and on versions that support it, each section is read back and compared. True if all arrived and the
 * exchange is back in normal mode; otherwise Transfer::reason says why not. After a failed section, the
 * exchange stays in configuration mode with what it has received. The only thing written to the project is
 * the compare check box.
 */
bool SendConfiguration(Transfer& transfer);

}  // namespace tarvok::sessions
