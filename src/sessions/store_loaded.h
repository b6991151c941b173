#pragma once

#include <functional>

#include "sessions/log_in.h"
#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

inline constexpr std::string_view kLoadQuestion = "Do you want to load data config?";
inline constexpr std::string_view kReplaceQuestion =
    "Get All Config Finished.\r\nDo you want to replace current file?";

/** In which words every session that loads logs in. */
inline constexpr LogInWords kLoadWords = {.set_mode_failed = "Change to set mode failed",
                                          .version_failed_line = "Check version failed.",
                                          .version_failed_box = "Check version failed",
                                          .version_line = "Config Version = ",
                                          .grouped_version = false,
                                          .too_old = kSoftwareTooOldToLoad,
                                          .too_new = kSoftwareTooOldToLoad,
                                          .words_before_normal = true};

/** Gives this load a temporary project of its own and drops that of the form's load before. If the temporary folder
 * cannot be written, the user is told and the load does not begin. */
bool BeginTemporary(Transfer& transfer);

/** One write of changes to the temporary project. The disk has it whenever the system gets to it: the exchange need not
 * wait for that, since a load makes it again, and what StoreLoaded puts in its place is flushed. */
Status UpdateTemporary(Transfer& transfer, const std::function<void(IniEdit&)>& change);

/** The end of a load over the line: its last words, the rate since `start_ms`, the connection keys into the
 * temporary project, the exchange back to normal, the modem's call ended. */
bool EndLoading(Transfer& transfer, std::string_view last_words, std::int64_t start_ms);

/** Nothing tells a pack that came twice from one that is new: its bytes were taken twice. And where frames were damaged
 * or lost, one may have passed its check. */
void AdviseAnotherLoad(Transfer& transfer);

/** Asks where the loaded project goes and puts it there, by one rename. True where the user wants it nowhere,
 * too. */
bool StoreLoaded(Transfer& transfer);

}  // namespace tarvok::sessions
