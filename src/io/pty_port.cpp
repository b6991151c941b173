#include "io/pty_port.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace tarvok::io {
namespace {

namespace fs = std::filesystem;

/** Unsent bytes beyond this number are lost: nobody is listening. */
constexpr std::size_t kMostUnsent = 65536;
constexpr std::string_view kTerminals = "/dev/pts/";

bool MakeRaw(int fd) {
  termios settings = {};
  if (::tcgetattr(fd, &settings) != 0) return false;
  ::cfmakeraw(&settings);
  return ::tcsetattr(fd, TCSANOW, &settings) == 0;
}

}  // namespace

PtyPort::PtyPort(std::string link) : link_(std::move(link)) {
  if (!Open() || !MakeLink()) return;
  readable_ = std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Read);
  writable_ = std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Write);
  writable_->setEnabled(false);
  QObject::connect(readable_.get(), &QSocketNotifier::activated, readable_.get(), [this] { OnReadable(); });
  QObject::connect(writable_.get(), &QSocketNotifier::activated, writable_.get(), [this] { OnWritable(); });
  if (watch_ >= 0) {
    watched_ = std::make_unique<QSocketNotifier>(watch_, QSocketNotifier::Read);
    QObject::connect(watched_.get(), &QSocketNotifier::activated, watched_.get(), [this] { OnWatched(); });
  }
  state_ = PortState::kOpen;
}

bool PtyPort::Open() {
  master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  std::array<char, 128> name = {};
  if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0 ||
      ::ptsname_r(master_, name.data(), name.size()) != 0) {
    Fail("no pseudo terminal");
    return false;
  }
  device_ = name.data();
  slave_ = ::open(device_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (slave_ < 0 || !MakeRaw(slave_)) {
    Fail(device_);
    return false;
  }
  watch_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  // Without the watch, only the notice that the other program has gone is missing.
  if (watch_ >= 0) ::inotify_add_watch(watch_, device_.c_str(), IN_CLOSE);
  return true;
}

bool PtyPort::MakeLink() {
  std::error_code failed;
  const fs::file_status there = fs::symlink_status(link_, failed);
  if (fs::exists(there)) {
    // A link left by a killed program dangles, or leads to the terminal that now has its number: ours. Any
    // other terminal may be another program's line.
    const std::string target =
        fs::is_symlink(there) ? fs::read_symlink(link_, failed).string() : std::string();
    const bool left_over =
        target == device_ || (target.starts_with(kTerminals) && !fs::exists(link_, failed));
    if (!left_over) {
      errno = EEXIST;
      Fail(target.empty() ? link_ : link_ + " leads to " + target);
      return false;
    }
    fs::remove(link_, failed);
  }
  fs::create_symlink(device_, link_, failed);
  if (!failed) return true;
  errno = failed.value();
  Fail(link_);
  return false;
}

void PtyPort::Fail(const std::string& what) {
  error_ = what + ": " + std::strerror(errno);
}

void PtyPort::OnReadable() {
  std::array<std::uint8_t, 4096> block = {};
  ssize_t got = 0;
  while ((got = ::read(master_, block.data(), block.size())) > 0) {
    Arrived({block.data(), static_cast<std::size_t>(got)});
    // A killed program leaves its lock on the terminal, because this end keeps the terminal alive.
    ::ioctl(slave_, TIOCNXCL);
  }
}

bool PtyPort::Send(std::span<const std::uint8_t> bytes) {
  if (state_ != PortState::kOpen) return false;
  if (unsent_.size() + bytes.size() <= kMostUnsent) unsent_.insert(unsent_.end(), bytes.begin(), bytes.end());
  OnWritable();
  return true;
}

void PtyPort::OnWritable() {
  while (!unsent_.empty()) {
    const ssize_t written = ::write(master_, unsent_.data(), unsent_.size());
    if (written <= 0) break;
    unsent_.erase(unsent_.begin(), unsent_.begin() + written);
  }
  writable_->setEnabled(!unsent_.empty());
}

void PtyPort::OnWatched() {
  alignas(inotify_event) std::array<char, 4096> events = {};
  while (::read(watch_, events.data(), events.size()) > 0) {
  }
  // Take what the old program wrote last; what it did not read is not meant for the next one.
  OnReadable();
  unsent_.clear();
  ::tcflush(slave_, TCIFLUSH);
  ::ioctl(slave_, TIOCNXCL);
  // Report it after the bytes just read, and outside the notifier.
  tell_released_.Post();
}

void PtyPort::Discard() {
  ForgetArrived();
  unsent_.clear();
  if (slave_ >= 0) ::tcflush(slave_, TCIOFLUSH);
}

void PtyPort::Close() {
  Silence();
  if (state_ == PortState::kOpen) {
    state_ = PortState::kClosed;
    std::error_code failed;
    // By now the link may lead to another terminal; then it is not ours to remove.
    if (fs::read_symlink(link_, failed).string() == device_) fs::remove(link_, failed);
  }
  readable_.reset();
  writable_.reset();
  watched_.reset();
  for (int* fd : {&watch_, &slave_, &master_}) {
    if (*fd >= 0) ::close(std::exchange(*fd, -1));
  }
}

}  // namespace tarvok::io
