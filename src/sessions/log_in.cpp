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
  transfer.report().Start("Send set mode...");
  const bool set = transfer.messages().SendSetMode(words.mode);
  return transfer.report().End(set, words.set_mode_failed, kModeOkDots, kModeFailedDots);
}

/** Sets the mode back to normal on the way out; a refusal no longer matters. */
void BackToNormal(Transfer& transfer) {
  if (!transfer.waits().aborted()) {
    [[maybe_unused]] const bool normal = transfer.messages().SendSetMode(ExchangeMode::kNormal);
  }
}

bool AskPassword(Transfer& transfer, const LogInWords& words) {
  bool mode_is_set = !words.password_first;
  {
    PasswordForm form(transfer, words.mode);
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
    return transfer.report().FailWithLine(words.version_failed_line, words.version_failed_box);
  }
  const int version = transfer.messages().state().pbx_version;
  transfer.version = version;
  const std::string shown = words.grouped_version ? FormatGrouped(version) : FormatHundredths(version);
  transfer.report().LogLine(std::string(words.version_line) + shown);
  return true;
}

}  // namespace

bool LogIn(Transfer& transfer, const LogInWords& words) {
  if (!words.password_first && !SetMode(transfer, words)) return false;
  if (!AskPassword(transfer, words)) return false;
  if (words.password_first && !SetMode(transfer, words)) return false;
  if (!LearnVersion(transfer, words)) return false;
  const int version = transfer.version;
  if (version >= words.lowest_version && version <= words.highest_version) return true;
  const std::string_view why = version < words.lowest_version ? words.too_old : words.too_new;
  if (words.words_before_normal) transfer.report().LogLine(why);
  BackToNormal(transfer);
  if (!words.words_before_normal) transfer.report().LogLine(why);
  return transfer.report().Fail(why);
}

bool EndSending(Transfer& transfer, std::string_view refused_box, std::string_view refused_line) {
  if (!transfer.messages().SendSetMode(ExchangeMode::kNormal)) {
    if (!refused_line.empty()) transfer.report().LogLine(refused_line);
    return transfer.report().Fail(refused_box);
  }
  if (transfer.transport().port == PortKind::kModem) EndModemCall(transfer.line());
  return true;
}

}  // namespace tarvok::sessions
