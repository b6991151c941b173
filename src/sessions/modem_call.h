#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Opens the modem's port, sets the modem up, dials, waits for its answer up to 91 seconds, and sets the link
 * up. Whether the link answers is left to the idle message that follows. False where there is no connection,
 * after its words. */
bool CallByModem(Transfer& transfer);

/** Ends a call that came to nothing: drops the control lines and writes the hang-up. The port stays open. */
void HangUpModem(ExchangeLine& line);

/** Ends a call that has done its work: the hang-up goes out before the control lines drop. The port stays open. */
void EndModemCall(ExchangeLine& line);

}  // namespace tarvok::sessions
