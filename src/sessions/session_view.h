#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sessions/uses.h"

namespace tarvok::sessions {

class PasswordForm;

enum class BoxKind { kInformation, kCritical };

/**
 * What a session shows and asks. The form, the command line and the tests each have one. Every box has the
 * title "Tarvok Setup"; line breaks in texts are CR LF.
 */
class SessionView {
 public:
  virtual ~SessionView() = default;

  /** Text for the log window, appended as it stands, line ends included. */
  virtual void Log(std::string_view text) = 0;
  virtual void Progress(int value, int end) = 0;
  virtual void Elapsed(int seconds) = 0;
  virtual void Box(BoxKind kind, std::string_view text) = 0;
  /** A question with Yes and No; true for Yes. */
  virtual bool Ask(std::string_view question) = 0;
  /** The question in front of a send, with the check box "Compare Byte"; true for Yes. */
  virtual bool AskWithCompare(std::string_view question, bool& compare) = 0;
  /** A name for a loaded project; nothing where the user gave none. */
  virtual std::optional<std::string> AskSaveName() = 0;
  /** Shows the password form modally until it has closed itself. */
  virtual void ShowPassword(PasswordForm& form) = 0;
  /** What the user had better do next, outside of the log window and of boxes; a view without a place for it leaves it. */
  virtual void Advise(std::string_view) {}
  /** How fast the transfer goes and what is left, each second and at its end; outside of the log window and of boxes. ""
   * takes it away: a transfer that failed has no speed. */
  virtual void ShowPace(std::string_view) {}
  /** While a session works, nothing that would start a second one is offered. */
  virtual void SetBusy(bool busy) = 0;
};

}  // namespace tarvok::sessions
