#pragma once

#include <string>

#include "sessions/transfer.h"

namespace tarvok {

/** Sends the billing tables of a folder as they are, sector by sector. A file that is not there is passed
 * over; a message that fails ends the session with the files so far. File names match without regard to case.
 */
bool SendBillingFiles(Transfer& transfer, const std::string& folder);

}  // namespace tarvok
