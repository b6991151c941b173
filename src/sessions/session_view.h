#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sessions/uses.h"

namespace tarvok::sessions {

class PasswordForm;

enum class BoxKind { kInformation, kCritical };

/**
 * Shows a session's output and asks its questions. The form, the command line and the tests each implement
 * it. Every box has the title "Tarvok Setup"; line breaks in texts are CR LF.
 */
class SessionView {
 public:
  virtual ~SessionView() = default;

  /** Appends text to the log window as it is, line ends included. */
  virtual void Log(std::string_view text) = 0;
  virtual void Progress(int value, int end) = 0;
  virtual void Elapsed(int seconds) = 0;
  virtual void Box(BoxKind kind, std::string_view text) = 0;
  /** Asks a question with Yes and No; true for Yes. */
  virtual bool Ask(std::string_view question) = 0;
  /** Asks the question before a send, with the check box "Compare Byte"; true for Yes. */
  virtual bool AskWithCompare(std::string_view question, bool& compare) = 0;
  /** Asks for a name for a loaded project; nullopt if the user gave none. */
  virtual std::optional<std::string> AskSaveName() = 0;
  /** Shows the password form modally until it has closed itself. */
  virtual void ShowPassword(PasswordForm& form) = 0;
  /**
   * Recommends what to do next, outside of the log window and boxes. Views without a place for it ignore it.
   */
  virtual void Advise(std::string_view) {}
  /**
   * Shows speed and progress, once per second and at the end, outside of the log window and boxes. "" removes
   * it: a failed transfer has no speed.
   */
  virtual void ShowPace(std::string_view) {}
  /** While a session is busy, nothing that would start a second one is offered. */
  virtual void SetBusy(bool busy) = 0;
};

}  // namespace tarvok::sessions
