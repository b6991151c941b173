#pragma once

#include <string>
#include <string_view>

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Whether a file of that name is a billing table, case aside. */
bool IsBillingFile(std::string_view name);

/** Sends the billing tables of a folder as they are, sector by sector. A file that is not there is passed
 * over; a message that fails ends the session with the files so far. File names match without regard to case.
 */
bool SendBillingFiles(Transfer& transfer, const std::string& folder);

}  // namespace tarvok::sessions
