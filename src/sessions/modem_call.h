#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * Opens the modem's port, sets up the modem, dials, waits up to 91 seconds for it to connect, and sets up the
 * link. The idle message that follows tests whether the exchange responds. Returns false after showing the
 * reason if there is no connection.
 */
bool CallByModem(Transfer& transfer);

/** Gives up a call: drops the control lines and sends the hang-up command. The port stays open. */
void HangUpModem(ExchangeLine& line);

/** Ends a completed call: sends the hang-up command before the control lines drop. The port stays open. */
void EndModemCall(ExchangeLine& line);

}  // namespace tarvok::sessions
