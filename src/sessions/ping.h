#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * Opens the line, sends one idle message, and shows how long the reply took. Not available over a modem.
 * Changes nothing in the exchange.
 */
bool PingExchange(Transfer& transfer);

}  // namespace tarvok::sessions
