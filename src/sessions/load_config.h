#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Reads every section that the exchange's version has into the temporary project and, at the end, asks where
 * it goes. True when all sections came, wherever the user put them. Until the last yes the open project stays
 * as it was. */
bool LoadConfiguration(Transfer& transfer);

}  // namespace tarvok::sessions
