#include "platform/log_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvok {

LogFile::~LogFile() {
  if (fd_ >= 0) ::close(fd_);
}

Status LogFile::Open(const std::string& path) {
  constexpr mode_t kUserOnly = S_IRUSR | S_IWUSR;
  fd_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, kUserOnly);
  // The debug lines hold what was sent, passwords too: the rights are set before anything old or new stands
  // there.
  if (fd_ >= 0 && ::fchmod(fd_, kUserOnly) == 0 && ::ftruncate(fd_, 0) == 0) return {};
  const int error = errno;
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  return {ErrorKind::kInputOutput, path + ": " + std::strerror(error)};
}

void LogFile::Write(std::string_view text) {
  while (fd_ >= 0 && !text.empty()) {
    const ssize_t written = ::write(fd_, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace tarvok
