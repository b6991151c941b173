#pragma once

#include "sessions/transfer.h"

namespace tarvok {

/** Opens the modem's port, sets the modem up, dials, waits for its answer up to 91 seconds, and sets the link
 * up. Whether the link answers is left to the idle message that follows. False where there is no connection,
 * after its words. */
bool CallByModem(Transfer& transfer);

/** Writes the hang-up and drops the control lines; the port stays open. */
void HangUpModem(ExchangeLine& line);

}  // namespace tarvok
