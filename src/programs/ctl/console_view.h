#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "programs/uses.h"
#include "sessions/session_view.h"

namespace tarvok::ctl {

/** A session on a terminal or in a script: the log window's lines as they come, boxes and questions as lines
 * of their own, every question answered Yes, and on a terminal a progress bar below the log. */
class ConsoleView : public SessionView {
 public:
  /** Gives the password of the next try; nothing gives the log-in up. */
  using AskPassword = std::function<std::optional<std::string>()>;

  /** `compare` checks the box "Compare Byte"; without it the box stays as the project has it. */
  explicit ConsoleView(AskPassword ask_password, bool compare = false);
  ~ConsoleView() override;

  /** Takes the bar away and ends a line that was left open. */
  void End();
  /** Behind the end of a session that went well: how fast it was, on standard error. */
  void TellPace();

  void Log(std::string_view text) override;
  void Progress(int value, int end) override;
  void Elapsed(int seconds) override;
  void Box(BoxKind kind, std::string_view text) override;
  bool Ask(std::string_view question) override;
  bool AskWithCompare(std::string_view question, bool& compare) override;
  std::optional<std::string> AskSaveName() override { return std::nullopt; }
  void ShowPassword(PasswordForm& form) override;
  void SetBusy(bool busy) override;
  void Advise(std::string_view text) override;
  void ShowPace(std::string_view text) override;

 private:
  void Write(std::string_view text);
  void DrawBar();
  void ClearBar();

  AskPassword ask_password_;
  bool compare_;
  bool has_bar_;          // standard output is a terminal
  bool outputs_are_one_;  // a note would go behind a line of the log that is still open
  bool bar_shown_ = false;
  bool busy_ = false;
  bool line_open_ = false;  // the log's last line waits for its end
  int value_ = 0;
  int end_ = 0;
  int seconds_ = 0;
  std::string pace_;
};

}  // namespace tarvok::ctl
