#pragma once

#include <string_view>

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

inline constexpr std::string_view kSoftwareTooOld =
    "This software is old version, Please contact vender for upgrade this software.";
/** The same as the sessions that load tell it. */
inline constexpr std::string_view kSoftwareTooOldToLoad =
    "This software is old version, Please contact vender for upgrade software.";

/** In which words and bounds the log-in of one session differs from the others. */
struct LogInWords {
  ExchangeMode mode = ExchangeMode::kConfiguration;
  std::string_view set_mode_failed = "Change to set mode failed (RE)";
  std::string_view version_failed_line = "Get version failed.";
  std::string_view version_failed_box = "Get version failed (RE)";
  std::string_view version_line = "Version : ";
  bool grouped_version = true;  // the version in "#,###.00", else in "##0.00"
  bool password_first = false;  // the password form, which sets the mode itself, comes before the mode
  int lowest_version = 100;
  int highest_version = 110;
  std::string_view too_old = kSoftwareTooOld;  // told below the lowest version
  std::string_view too_new = kSoftwareTooOld;  // told above the highest
  bool words_before_normal = false;  // told before the exchange is put back to normal, else behind that
};

/** Sets the mode, asks for the password, learns the version and tests its bounds. False, after the session's
 * words and with the exchange back in normal mode where the story has it so, if the session ends here. */
bool LogIn(Transfer& transfer, const LogInWords& words);

/** The end of a session that sent: the exchange back to normal, the modem's call ended. A refusal is told in
 * the given box, after its line in the log window where there is one. */
bool EndSending(Transfer& transfer, std::string_view refused_box, std::string_view refused_line = {});

}  // namespace tarvok::sessions
