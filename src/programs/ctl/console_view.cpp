#include "programs/ctl/console_view.h"

#include <algorithm>
#include <cstdio>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "programs/ctl/exit_status.h"
#include "programs/ctl/terminal_text.h"
#include "programs/uses.h"
#include "sessions/pace.h"
#include "sessions/password_form.h"
#include "store/one_line.h"

namespace tarvok::ctl {
namespace {

/** True if standard output and standard error are the same terminal, file or pipe. */
bool OutputsAreOne() {
  struct stat output = {};
  struct stat error = {};
  return ::fstat(STDOUT_FILENO, &output) == 0 && ::fstat(STDERR_FILENO, &error) == 0 &&
         output.st_dev == error.st_dev && output.st_ino == error.st_ino;
}

}  // namespace

ConsoleView::ConsoleView(AskPassword ask_password, bool compare)
    : ask_password_(std::move(ask_password)),
      compare_(compare),
      has_bar_(::isatty(STDOUT_FILENO) == 1),
      outputs_are_one_(OutputsAreOne()) {}

ConsoleView::~ConsoleView() {
  End();
}

void ConsoleView::End() {
  ClearBar();
  if (std::exchange(line_open_, false)) Write("\n");
}

void ConsoleView::Write(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

void ConsoleView::Log(std::string_view text) {
  ClearBar();
  std::string shown;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    std::string line(text.substr(at, end - at));
    std::erase(line, '\r');
    shown += ShownLine(line);
    if (end < text.size()) shown += '\n';
    at = end + 1;
  }
  if (shown.empty()) return;
  line_open_ = shown.back() != '\n';
  Write(shown);
  DrawBar();
}

void ConsoleView::Progress(int value, int end) {
  value_ = value;
  end_ = end;
  ClearBar();
  DrawBar();
}

void ConsoleView::Elapsed(int seconds) {
  seconds_ = seconds;
  ClearBar();
  DrawBar();
}

void ConsoleView::ClearBar() {
  if (std::exchange(bar_shown_, false)) Write("\r\033[K");
}

void ConsoleView::DrawBar() {
  constexpr int kWidth = 20;
  if (!has_bar_ || !busy_ || line_open_ || end_ == 0) return;
  const int filled = kWidth * value_ / end_;
  std::string bar = "[" + std::string(static_cast<std::size_t>(filled), '#') +
                    std::string(static_cast<std::size_t>(kWidth - filled), ' ') + "] " +
                    std::to_string(100 * value_ / end_) + " %, " + MinutesText(seconds_);
  if (!pace_.empty()) bar += ", " + pace_;
  // A bar that wraps could not be removed.
  winsize size = {};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    bar.resize(std::min<std::size_t>(bar.size(), size.ws_col - 1U));
  }
  Write(bar);
  bar_shown_ = true;
}

void ConsoleView::Box(BoxKind /*kind*/, std::string_view text) {
  Log("box: " + InOneLine(text) + "\n");
}

bool ConsoleView::Ask(std::string_view question) {
  Log("ask: " + InOneLine(question) + " -> Yes\n");
  return true;
}

bool ConsoleView::AskWithCompare(std::string_view question, bool& compare) {
  compare = compare || compare_;
  return Ask(question);
}

void ConsoleView::ShowPassword(PasswordForm& form) {
  ClearBar();
  while (form.open()) {
    const std::optional<std::string> password = ask_password_();
    if (password) {
      form.password = *password;
      form.Ok();
    } else {
      form.Cancel();
    }
  }
}

void ConsoleView::Advise(std::string_view text) {
  ClearBar();
  if (outputs_are_one_ && std::exchange(line_open_, false)) Write("\n");
  Note(text);
}

void ConsoleView::ShowPace(std::string_view text) {
  ClearBar();
  pace_ = text;
  DrawBar();
}

void ConsoleView::SetBusy(bool busy) {
  ClearBar();
  busy_ = busy;
}

void ConsoleView::TellPace() {
  if (!pace_.empty()) Tell(std::exchange(pace_, {}));
}

}  // namespace tarvok::ctl
