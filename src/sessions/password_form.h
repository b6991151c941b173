#pragma once

#include <array>
#include <string>
#include <string_view>

#include "link/password_code.h"
#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * The log-in that every session shows after setting the exchange to a mode. Only the exchange decides; no
 * part of a password is stored here. A view fills in the fields and calls the handlers until the form has
 * closed itself.
 */
class PasswordForm {
 public:
  /** A new password for a level, typed twice. */
  struct NewPassword {
    bool changes = false;
    std::string password;
    std::string retyped;
  };

  /** `mode` is the mode of the session; every attempt sets it again. */
  PasswordForm(Transfer& transfer, ExchangeMode mode);
  ~PasswordForm();
  PasswordForm(const PasswordForm&) = delete;
  PasswordForm& operator=(const PasswordForm&) = delete;

  std::string password;            // the password, digits only
  bool changes_passwords = false;  // "Change Password"
  std::array<NewPassword, kPasswordLevels> levels;

  /** Called for the button OK. */
  void Ok();
  /** Called for "Cancel" and for the window's close button. */
  void Cancel();

  /** True if the key may be typed into one of the fields. */
  static bool Accepts(char key) { return key >= '0' && key <= '9'; }

  bool open() const { return open_; }
  /** True after a first attempt, which sets the exchange to the mode. */
  bool tried() const { return wrong_tries_ > 0; }
  /** True if the log-in succeeded. */
  bool passed() const { return passed_; }

 private:
  bool NewPasswordsFit();
  void Check();
  void SendNewPasswords();
  void WrongPassword(std::string_view last_words);
  void CheckResponseError();
  void Close(bool passed);

  Transfer& transfer_;
  ExchangeMode mode_;
  int wrong_tries_ = 0;
  bool busy_ = false;  // an attempt is running and handles errors itself; the timer must not
  bool open_ = true;
  bool passed_ = false;
  EventServer::TimerId error_timer_ = 0;
};

}  // namespace tarvok::sessions
