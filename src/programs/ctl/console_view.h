#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "programs/uses.h"
#include "sessions/session_view.h"

namespace tarvok::ctl {

/**
 * A session on a terminal or in a script: prints the lines of the log window as they come, boxes and
 * questions on lines of their own, answers every question with Yes, and shows a progress bar below the log on
 * a terminal.
 */
class ConsoleView : public SessionView {
 public:
  /** Returns the password for the next attempt; nullopt cancels the log-in. */
  using AskPassword = std::function<std::optional<std::string>()>;

  /** `compare` checks the box "Compare Byte"; otherwise the box stays as the project has it. */
  explicit ConsoleView(AskPassword ask_password, bool compare = false);
  ~ConsoleView() override;

  /** Removes the bar and ends an unfinished line. */
  void End();
  /** Call after a successful session: prints its speed to standard error. */
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
  bool outputs_are_one_;  // a note would continue a log line that is not finished yet
  bool bar_shown_ = false;
  bool busy_ = false;
  bool line_open_ = false;  // the log's last line is not finished yet
  int value_ = 0;
  int end_ = 0;
  int seconds_ = 0;
  std::string pace_;
};

}  // namespace tarvok::ctl
