#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * Reads every section that the exchange's version has into the temporary project, then asks where to store
 * it. True if all sections arrived, wherever the user stored them. The open project stays unchanged until the
 * last Yes.
 */
bool LoadConfiguration(Transfer& transfer);

}  // namespace tarvok::sessions
