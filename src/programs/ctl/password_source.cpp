#include "programs/ctl/password_source.h"

#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <termios.h>
#include <unistd.h>

#include <QSocketNotifier>

#include "link/password_code.h"
#include "programs/uses.h"

namespace tarvok::ctl {
namespace {

constexpr const char* kVariable = "TARVOK_PASSWORD";
constexpr const char* kTerminal = "/dev/tty";

bool IsPassword(std::string_view text) {
  return PackPassword(text).has_value();
}

/** The terminal with its echo off; restored by the destructor. */
class SilentTerminal {
 public:
  SilentTerminal() : fd_(::open(kTerminal, O_RDWR | O_CLOEXEC | O_NOCTTY)) {
    if (fd_ < 0 || ::tcgetattr(fd_, &before_) != 0) return;
    termios silent = before_;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    restore_ = ::tcsetattr(fd_, TCSAFLUSH, &silent) == 0;
  }
  ~SilentTerminal() {
    if (restore_) ::tcsetattr(fd_, TCSAFLUSH, &before_);
    if (fd_ >= 0) ::close(fd_);
  }
  SilentTerminal(const SilentTerminal&) = delete;
  SilentTerminal& operator=(const SilentTerminal&) = delete;

  int fd() const { return fd_; }
  void Say(std::string_view text) const {
    // Go on if the prompt cannot be shown: the line can still be read.
    [[maybe_unused]] const ssize_t written = ::write(fd_, text.data(), text.size());
  }

 private:
  int fd_;
  termios before_{};
  bool restore_ = false;
};

}  // namespace

Result<PasswordSource> PasswordSource::Find(FileSystem& files, const std::string& file) {
  PasswordSource source;
  if (!file.empty()) {
    const Result<std::string> text = files.Read(file);
    if (!text.ok()) return text.status();
    source.given_ = text.value().substr(0, text.value().find_first_of("\r\n"));
    if (!IsPassword(source.given_)) {
      return Status(ErrorKind::kBadData, file + ": no password of one to six digits in the first line");
    }
  } else if (const char* variable = std::getenv(kVariable); variable != nullptr) {
    source.given_ = variable;
    if (!IsPassword(source.given_)) {
      return Status(ErrorKind::kBadData, std::string(kVariable) + ": no password of one to six digits");
    }
  } else if (const int terminal = ::open(kTerminal, O_RDWR | O_CLOEXEC | O_NOCTTY); terminal >= 0) {
    ::close(terminal);
  } else {
    return Status(ErrorKind::kBadData, std::string("no password: set ") + kVariable +
                                           ", give --password-file, or run on a terminal");
  }
  return source;
}

std::optional<std::string> PasswordSource::Next(EventServer& events, const std::function<bool()>& stopped) {
  if (!given_.empty()) return given_;
  const SilentTerminal terminal;
  if (terminal.fd() < 0) return std::nullopt;
  std::string line;
  while (!IsPassword(line)) {
    terminal.Say(line.empty() ? "Enter Password: " : "One to six digits. Enter Password: ");
    bool readable = false;
    QSocketNotifier notifier(terminal.fd(), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, [&] {
      readable = true;
      notifier.setEnabled(false);
    });
    events.ServeUntil([&] { return readable || stopped(); }, EventServer::kForever);
    if (!readable) {
      terminal.Say("\r\n");  // messages about the end start on a new line
      return std::nullopt;
    }
    char buffer[256];
    const ssize_t got = ::read(terminal.fd(), buffer, sizeof buffer);
    terminal.Say("\r\n");
    if (got <= 0) return std::nullopt;
    line.assign(buffer, static_cast<std::size_t>(got));
    line.erase(line.find_last_not_of("\r\n") + 1);
  }
  return line;
}

}  // namespace tarvok::ctl
