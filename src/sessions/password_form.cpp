#include "sessions/password_form.h"

#include <functional>
#include <utility>

#include "link/password_code.h"
#include "sections/registry.h"
#include "store/number_text.h"

namespace tarvok::sessions {
namespace {

constexpr int kMostTries = 3;
constexpr int kCheckInterval_ms = 1000;

std::string_view LastWordsOf(TransferForm form) {
  switch (form) {
    case TransferForm::kBilling:
      return "Password incorrect or level password cannot set billing files.";
    case TransferForm::kMiniBar:
      return "Password incorrect or level password cannot set mini bar.";
    default:
      return "Password incorrect or level password cannot set config.";
  }
}

std::string_view LastWordsOfTimer(TransferForm form) {
  return form == TransferForm::kBilling ? "Password incorrect or level password cannot set billing."
                                        : "Password incorrect or level password cannot set config.";
}

/** Packs the password for a single call and wipes the bytes afterwards. */
bool Send(std::string_view password, const std::function<bool(const PackedPassword&)>& send) {
  PackedPassword packed = *PackPassword(password);
  const bool sent = send(packed);
  Wipe(packed);
  return sent;
}

}  // namespace

PasswordForm::PasswordForm(Transfer& transfer, ExchangeMode mode) : transfer_(transfer), mode_(mode) {
  transfer_.messages().state().stop_on_error = true;
  error_timer_ = transfer_.waits().events().StartTimer(kCheckInterval_ms, [this] { CheckResponseError(); });
}

PasswordForm::~PasswordForm() {
  transfer_.waits().events().StopTimer(error_timer_);
  transfer_.messages().state().stop_on_error = false;
  Wipe(password);
  for (NewPassword& level : levels) {
    Wipe(level.password);
    Wipe(level.retyped);
  }
}

void PasswordForm::Ok() {
  if (!open_ || busy_) return;
  if (!PackPassword(password)) {
    transfer_.report().Box(BoxKind::kInformation, "Please enter password");
    return;
  }
  if (!NewPasswordsFit()) return;
  busy_ = true;
  Check();
  busy_ = false;
}

bool PasswordForm::NewPasswordsFit() {
  for (const NewPassword& level : levels) {
    if (!changes_passwords || !level.changes) continue;
    if (level.password != level.retyped) {
      transfer_.report().Box(BoxKind::kInformation, "New password doesn't match");
      return false;
    }
    if (!PackPassword(level.password)) {
      transfer_.report().Box(BoxKind::kInformation, "Please input password");
      return false;
    }
  }
  return true;
}

void PasswordForm::Check() {
  ++wrong_tries_;
  MessageLayer& messages = transfer_.messages();
  messages.state().error_came = false;
  if (!messages.SendSetMode(mode_)) {
    transfer_.report().LogLine("Send set mode (psw)..........................Failed");
    Close(transfer_.report().Fail("Change to set mode failed (RE)"));
  } else if (Send(password, [&](const PackedPassword& packed) { return messages.CheckPassword(packed); })) {
    SendNewPasswords();
  } else {
    messages.state().error_came = false;  // one refusal shows one box and counts as one attempt
    WrongPassword(LastWordsOf(transfer_.form()));
  }
}

void PasswordForm::SendNewPasswords() {
  for (std::size_t i = 0; i < levels.size(); ++i) {
    if (!changes_passwords || !levels[i].changes) continue;
    const auto send = [&](const PackedPassword& packed) {
      return transfer_.messages().SendConfig(kPasswordSections[i], packed);
    };
    if (Send(levels[i].password, send)) continue;
    if (transfer_.form() == TransferForm::kBilling) {
      transfer_.report().LogLine("Update New Password Error. Try again");
    } else {
      transfer_.report().LogLine("Err: Update New Password Error");
      transfer_.report().LogLine("Check your connection and try again.");
    }
    Close(transfer_.report().Fail("Update New Password Error"));
    return;
  }
  Close(true);
}

void PasswordForm::WrongPassword(std::string_view last_words) {
  [[maybe_unused]] const bool failed = transfer_.report().Fail("Password incorrect");
  Wipe(password);
  if (transfer_.waits().aborted()) {
    Close(false);
  } else if (wrong_tries_ >= kMostTries) {
    transfer_.report().LogLine(last_words);
    transfer_.report().LogLine("Please contact vender.");
    Close(false);
  }
}

void PasswordForm::CheckResponseError() {
  bool& error = transfer_.messages().state().error_came;
  if (!open_ || busy_ || !std::exchange(error, false)) return;
  ++wrong_tries_;
  WrongPassword(LastWordsOfTimer(transfer_.form()));
}

void PasswordForm::Cancel() {
  if (!open_ || busy_) return;
  Close(transfer_.report().FailInLog("User cancel"));
}

void PasswordForm::Close(bool passed) {
  passed_ = passed;
  open_ = false;
}

}  // namespace tarvok::sessions
