#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Opens the line, sends one idle message, and says how long the answer took. Not over a modem. Changes
 * nothing in the exchange. */
bool PingExchange(Transfer& transfer);

}  // namespace tarvok::sessions
