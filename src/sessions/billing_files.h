#pragma once

#include <string>
#include <string_view>

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** True if a file of that name is a billing table, ignoring case. */
bool IsBillingFile(std::string_view name);

/**
 * Sends the billing tables of a folder sector by sector, unchanged. Missing files are skipped; a message that
 * fails ends the session after the files sent so far. File names match regardless of case.
 */
bool SendBillingFiles(Transfer& transfer, const std::string& folder);

}  // namespace tarvok::sessions
