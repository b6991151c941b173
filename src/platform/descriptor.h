#pragma once

#include <unistd.h>
#include <utility>

#include "platform/uses.h"

namespace tarvok::platform {

/** Owns a file descriptor and closes it; -1 if there is none. */
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }

  int get() const { return fd_; }
  bool valid() const { return fd_ >= 0; }
  /** Closes now; true on success. */
  bool Close() { return ::close(std::exchange(fd_, -1)) == 0; }

 private:
  int fd_;
};

}  // namespace tarvok::platform
