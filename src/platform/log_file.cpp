#include "platform/log_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvok {

Status LogFile::Open(const std::string& path) {
  constexpr mode_t kUserOnly = S_IRUSR | S_IWUSR;
  file_ = Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, kUserOnly));
  // The debug lines hold what was sent, passwords too: the rights are set before anything old or new stands
  // there.
  if (file_.valid() && ::fchmod(file_.get(), kUserOnly) == 0 && ::ftruncate(file_.get(), 0) == 0) return {};
  const int error = errno;
  file_ = Descriptor();
  return {ErrorKind::kInputOutput, path + ": " + std::strerror(error)};
}

void LogFile::Write(std::string_view text) {
  while (file_.valid() && !text.empty()) {
    const ssize_t written = ::write(file_.get(), text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace tarvok
