#pragma once

#include <string_view>

#include "sections/registry.h"
#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

inline constexpr std::string_view kSoftwareTooOld =
    "This software is old version, Please contact vender for upgrade this software.";
/** The same message in sessions that load. */
inline constexpr std::string_view kSoftwareTooOldToLoad =
    "This software is old version, Please contact vender for upgrade software.";

/** How the log-in of a session differs from the others in texts and limits. */
struct LogInWords {
  ExchangeMode mode = ExchangeMode::kConfiguration;
  std::string_view set_mode_failed = "Change to set mode failed (RE)";
  std::string_view version_failed_line = "Get version failed.";
  std::string_view version_failed_box = "Get version failed (RE)";
  std::string_view version_line = "Version : ";
  bool grouped_version = true;  // shows the version in "#,###.00", otherwise in "##0.00"
  bool password_first = false;  // the password form, which sets the mode itself, comes before the mode
  int lowest_version = kLowestVersion;
  int highest_version = kHighestVersion;
  std::string_view too_old = kSoftwareTooOld;  // shown below the lowest version
  std::string_view too_new = kSoftwareTooOld;  // shown above the highest version
  bool words_before_normal = false;  // show them before the exchange is set back to normal, otherwise after
};

/**
 * Sets the mode, asks for the password, reads the version and checks it against the limits. If the session
 * ends here, returns false after showing the message, with the exchange back in normal mode where the session
 * requires it.
 */
bool LogIn(Transfer& transfer, const LogInWords& words);

/**
 * Ends a session that sent: sets the exchange back to normal and hangs up the modem. If the exchange refuses,
 * shows the given box, preceded by the line in the log window if there is one.
 */
bool EndSending(Transfer& transfer, std::string_view refused_box, std::string_view refused_line = {});

}  // namespace tarvok::sessions
