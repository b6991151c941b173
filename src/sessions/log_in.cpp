#include "sessions/log_in.h"

#include <string>

#include "sessions/modem_call.h"
#include "sessions/password_form.h"
#include "store/number_text.h"

namespace tarvok::sessions {
namespace {

constexpr std::string_view kModeOkDots = "..............................";
constexpr std::string_view kModeFailedDots = "............................";

bool SetMode(Transfer& transfer, const LogInWords& words) {
  transfer.Start("Send set mode...");
  if (transfer.messages().SendSetMode(words.mode)) {
    transfer.Finished(kModeOkDots);
    return true;
  }
  transfer.Failed(kModeFailedDots);
  return transfer.Fail(words.set_mode_failed);
}

/** Sets the mode back to normal on the way out; a refusal no longer matters. */
void BackToNormal(Transfer& transfer) {
  if (!transfer.waits().aborted()) {
    [[maybe_unused]] const bool normal = transfer.messages().SendSetMode(ExchangeMode::kNormal);
  }
}

bool AskPassword(Transfer& transfer, bool mode_is_set) {
  {
    PasswordForm form(transfer);
    transfer.view().ShowPassword(form);
    if (form.passed()) return true;
    mode_is_set = mode_is_set || form.tried();
  }
  if (mode_is_set) BackToNormal(transfer);
  return false;
}

bool LearnVersion(Transfer& transfer, const LogInWords& words) {
  transfer.messages().state().version_came = false;
  transfer.messages().state().error_came = false;
  if (!transfer.messages().GetVersion()) {
    transfer.LogLine(words.version_failed_line);
    return transfer.Fail(words.version_failed_box);
  }
  const int version = transfer.messages().state().pbx_version;
  transfer.set_version(version);
  const std::string shown = words.grouped_version ? FormatGrouped(version) : FormatHundredths(version);
  transfer.LogLine(std::string(words.version_line) + shown);
  return true;
}

}  // namespace

bool LogIn(Transfer& transfer, const LogInWords& words) {
  if (!words.password_first && !SetMode(transfer, words)) return false;
  if (!AskPassword(transfer, !words.password_first)) return false;
  if (words.password_first && !SetMode(transfer, words)) return false;
  if (!LearnVersion(transfer, words)) return false;
  const int version = transfer.version();
  if (version >= words.lowest_version && version <= words.highest_version) return true;
  const std::string_view why = version < words.lowest_version ? words.too_old : words.too_new;
  if (words.words_before_normal) transfer.LogLine(why);
  BackToNormal(transfer);
  if (!words.words_before_normal) transfer.LogLine(why);
  return transfer.Fail(why);
}

bool EndSending(Transfer& transfer, std::string_view refused_box, std::string_view refused_line) {
  if (!transfer.messages().SendSetMode(ExchangeMode::kNormal)) {
    if (!refused_line.empty()) transfer.LogLine(refused_line);
    return transfer.Fail(refused_box);
  }
  if (transfer.mode() == LinkMode::kModem) EndModemCall(transfer.line());
  return true;
}

}  // namespace tarvok::sessions
