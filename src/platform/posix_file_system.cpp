#include "platform/posix_file_system.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/descriptor.h"

namespace tarvok::platform {
namespace {

/**
 * How long a file's time stamp may stay the same while its bytes change: a few ticks of the kernel's coarse
 * clock.
 */
constexpr std::int64_t kTimeGrain_ns = 20'000'000;
constexpr int kLockTries = 40;
constexpr useconds_t kLockPause_us = 50'000;

ErrorKind KindOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return ErrorKind::kNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorKind::kNoPermission;
    case ENOSPC:
    case EDQUOT:
      return ErrorKind::kNoSpace;
    case EEXIST:
      return ErrorKind::kExists;
    default:
      return ErrorKind::kInputOutput;
  }
}

Status Failed(const std::string& path, int error) {
  return {KindOf(error), path + ": " + std::strerror(error)};
}

/** Writes all bytes from the start of the file. Returns 0 or the error number. */
int WriteAll(int fd, std::string_view bytes, Flush flush) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written = ::pwrite(fd, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    if (written == 0) return ENOSPC;
    done += static_cast<std::size_t>(written);
  }
  if (::ftruncate(fd, static_cast<off_t>(bytes.size())) != 0) return errno;
  return flush == Flush::kLater || ::fsync(fd) == 0 ? 0 : errno;
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

class FolderLock : public FileLock {
 public:
  explicit FolderLock(int fd) : folder_(fd) {}

 private:
  Descriptor folder_;  // closing it releases the lock
};

/** The target of a link, relative to the folder of the link. */
std::string TargetOfLink(const std::string& link) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::read_symlink(link, error);
  if (error || target.is_absolute()) return target.string();
  return (std::filesystem::path(FolderOf(link)) / target).string();
}

}  // namespace

FileIdentity PosixFileSystem::Identify(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return {};
  struct timespec now {};
  ::clock_gettime(CLOCK_REALTIME, &now);
  FileIdentity identity;
  identity.exists = true;
  identity.device = info.st_dev;
  identity.inode = info.st_ino;
  identity.size = info.st_size;
  identity.modified_ns = info.st_mtim.tv_sec * 1'000'000'000LL + info.st_mtim.tv_nsec;
  identity.regular = S_ISREG(info.st_mode);
  identity.settled = now.tv_sec * 1'000'000'000LL + now.tv_nsec - identity.modified_ns > kTimeGrain_ns;
  return identity;
}

Result<std::string> PosixFileSystem::Read(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.valid()) return Failed(path, errno);
  struct stat info {};
  if (::fstat(file.get(), &info) != 0) return Failed(path, errno);
  if (S_ISDIR(info.st_mode)) return Failed(path, EISDIR);
  if (!S_ISREG(info.st_mode)) return Status(ErrorKind::kInputOutput, path + ": not a regular file");
  std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
  std::size_t done = 0;
  while (true) {
    if (done == bytes.size()) bytes.resize(bytes.size() + 4096);  // the file may have grown since
    const ssize_t got = ::read(file.get(), bytes.data() + done, bytes.size() - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return Failed(path, errno);
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  bytes.resize(done);
  return bytes;
}

std::string PosixFileSystem::Resolve(const std::string& path) {
  constexpr int kMostLinks = 40;  // as the kernel counts
  std::string at = path;
  for (int links = 0; links < kMostLinks; ++links) {
    if (char* resolved = ::realpath(at.c_str(), nullptr); resolved != nullptr) {
      const std::string result(resolved);
      std::free(resolved);
      return result;
    }
    // A dangling link: the file will be created where the link leads.
    const std::string target = TargetOfLink(at);
    if (target.empty()) return at;
    at = target;
  }
  return path;
}

Status PosixFileSystem::WriteNew(const std::string& path, std::string_view bytes, const std::string& like,
                                 Flush flush) {
  struct stat old {};
  const bool replaces = ::stat(like.c_str(), &old) == 0;
  // Without these permissions, a private project would become readable by everybody.
  if (!replaces && errno != ENOENT) return Failed(like, errno);
  // A file that its owner has protected against writing is not replaced.
  if (replaces && ::access(like.c_str(), W_OK) != 0) return Failed(like, errno);
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  if (!file.valid()) return Failed(path, errno);
  int error = 0;
  struct stat made {};
  if (replaces && ::fstat(file.get(), &made) != 0) error = errno;
  // Only if they differ: some file systems have one mode for all files and refuse every change.
  constexpr mode_t kPermissions = 07777;
  const bool differ = replaces && ((made.st_mode ^ old.st_mode) & kPermissions) != 0;
  if (error == 0 && differ && ::fchmod(file.get(), old.st_mode & kPermissions) != 0) error = errno;
  if (error == 0) error = WriteAll(file.get(), bytes, flush);
  if (!file.Close() && error == 0) error = errno;
  if (error == 0) return {};
  ::unlink(path.c_str());
  // The folder accepted the file, so this is not a folder that calls for a write in place.
  return {error == ENOSPC || error == EDQUOT ? ErrorKind::kNoSpace : ErrorKind::kInputOutput,
          path + ": " + std::strerror(error)};
}

Status PosixFileSystem::Overwrite(const std::string& path, std::string_view bytes) {
  const Result<std::string> old = Read(path);
  if (!old.ok()) return old.status();
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
  if (!file.valid()) return Failed(path, errno);
  int error = 0;
  if (!bytes.empty()) {
    // Reserve the space first: a disk that fills up midway would leave a mixture of old and new bytes.
    error = ::posix_fallocate(file.get(), 0, static_cast<off_t>(bytes.size()));
    if (error == EOPNOTSUPP || error == EINVAL) error = 0;
  }
  if (error == 0) error = WriteAll(file.get(), bytes, Flush::kNow);
  if (error == 0) return {};
  // Put the old bytes back. The first error is the one to report.
  [[maybe_unused]] const int put_back = WriteAll(file.get(), old.value(), Flush::kNow);
  return Failed(path, error);
}

Status PosixFileSystem::Rename(const std::string& from, const std::string& to, Flush flush) {
  if (::rename(from.c_str(), to.c_str()) != 0) return Failed(to, errno);
  if (flush == Flush::kLater) return {};
  // The new name is in force. If the folder cannot be flushed (as on some network file systems), only its
  // durability is delayed.
  const Descriptor folder(::open(FolderOf(to).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.valid()) ::fsync(folder.get());
  return {};
}

Status PosixFileSystem::Remove(const std::string& path) {
  return std::remove(path.c_str()) == 0 ? Status() : Failed(path, errno);
}

Result<std::vector<std::string>> PosixFileSystem::List(const std::string& folder) {
  std::error_code error;
  std::vector<std::string> names;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  if (error) return Failed(folder, error.value());
  return names;
}

Result<std::unique_ptr<FileLock>> PosixFileSystem::Lock(const std::string& path) {
  const std::string folder = FolderOf(Resolve(path));
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return Failed(folder, errno);
  auto lock = std::make_unique<FolderLock>(fd);
  for (int i = 0; ::flock(fd, LOCK_EX | LOCK_NB) != 0; ++i) {
    // On a file system without locks, write without one.
    if (errno == ENOLCK || errno == ENOSYS || errno == EOPNOTSUPP || errno == EINVAL || errno == EBADF) break;
    if (errno != EWOULDBLOCK && errno != EINTR) return Failed(folder, errno);
    if (i == kLockTries) {
      return Status(ErrorKind::kInputOutput, path + ": another program is writing in this folder");
    }
    ::usleep(kLockPause_us);
  }
  return std::unique_ptr<FileLock>(std::move(lock));
}

Result<std::string> PosixFileSystem::MakePrivateFolder(const std::string& parent) {
  std::string path = parent + "/tarvok-XXXXXX";
  if (::mkdtemp(path.data()) == nullptr) return Failed(parent, errno);
  return path;
}

}  // namespace tarvok::platform
