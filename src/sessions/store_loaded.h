#pragma once

#include <functional>

#include "sessions/log_in.h"
#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

inline constexpr std::string_view kLoadQuestion = "Do you want to load data config?";
inline constexpr std::string_view kReplaceQuestion =
    "Get All Config Finished.\r\nDo you want to replace current file?";

/** The log-in texts of sessions that load. */
inline constexpr LogInWords kLoadWords = {.set_mode_failed = "Change to set mode failed",
                                          .version_failed_line = "Check version failed.",
                                          .version_failed_box = "Check version failed",
                                          .version_line = "Config Version = ",
                                          .grouped_version = false,
                                          .too_old = kSoftwareTooOldToLoad,
                                          .too_new = kSoftwareTooOldToLoad,
                                          .words_before_normal = true};

/**
 * Creates a new temporary project for this load and drops the one of the form's previous load. If the
 * temporary folder is not writable, reports it, and the load does not begin.
 */
bool BeginTemporary(Transfer& transfer);

/**
 * Applies changes to the temporary project in one write, without waiting for the disk: a load can be
 * repeated, and StoreLoaded flushes the copy that it stores.
 */
Status UpdateTemporary(Transfer& transfer, const std::function<void(IniEdit&)>& change);

/**
 * Ends the part of a load that uses the line: logs the last texts and the rate since `start_ms`, writes the
 * connection keys to the temporary project, sets the exchange back to normal and hangs up the modem.
 */
bool EndLoading(Transfer& transfer, std::string_view last_words, std::int64_t start_ms);

/**
 * Advises another load if data may be wrong: after damaged or lost frames one may have passed its check, and
 * a repeated pack looks like a new one, so its bytes may have been taken twice.
 */
void AdviseAnotherLoad(Transfer& transfer);

/**
 * Asks where to store the loaded project and puts it there with a single rename. Also true if the user does
 * not want to store it.
 */
bool StoreLoaded(Transfer& transfer);

}  // namespace tarvok::sessions
