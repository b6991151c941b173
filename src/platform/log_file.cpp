#include "platform/log_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvok::platform {
namespace {

Status Because(const std::string& path, int error) {
  return {ErrorKind::kInputOutput, path + ": " + std::strerror(error)};
}

/** Makes a regular file this log's own: locked, empty and private. */
Status TakeOver(int fd, const std::string& path) {
  constexpr mode_t kUserOnly = S_IRUSR | S_IWUSR;
  // Two sessions with the same history file would overwrite each other. If files cannot be locked here, go on
  // without.
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    return {ErrorKind::kExists, path + ": another session is writing this history"};
  }
  // The debug lines show what was sent, including passwords: restrict the file before anything is written to
  // it.
  if (::fchmod(fd, kUserOnly) == 0 && ::ftruncate(fd, 0) == 0) return {};
  return Because(path, errno);
}

}  // namespace

Status LogFile::Open(const std::string& path) {
  constexpr int kHow = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  path_ = path;
  status_ = {};
  file_ = Descriptor(::open(path.c_str(), kHow, S_IRUSR | S_IWUSR));
  struct stat info {};
  if (!file_.valid() || ::fstat(file_.get(), &info) != 0) return Because(path, errno);
  Status taken;
  if (S_ISREG(info.st_mode)) {
    taken = TakeOver(file_.get(), path);
  } else if (S_ISCHR(info.st_mode)) {
    ::fcntl(file_.get(), F_SETFL, O_APPEND);  // writes wait for a slow terminal
  } else {
    taken = Status(ErrorKind::kInputOutput, path + ": not a regular file");
  }
  if (!taken.ok()) file_ = Descriptor();
  return taken;
}

void LogFile::Write(std::string_view text) {
  while (file_.valid() && !text.empty()) {
    const ssize_t written = ::write(file_.get(), text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) {
      if (status_.ok()) status_ = Because(path_, written < 0 ? errno : ENOSPC);
      return;
    }
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace tarvok::platform
