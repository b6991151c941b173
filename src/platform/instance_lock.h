#pragma once

#include <string>

#include "platform/descriptor.h"
#include "platform/uses.h"

namespace tarvok::platform {

/**
 * Detects whether another instance of the program is running for this user, and lets the next one detect this
 * instance. The kernel releases the lock when the program ends, however it ends; an empty file is left
 * behind.
 */
class InstanceLock {
 public:
  /** Creates the file if it does not exist. Its folder must belong to the user alone. */
  explicit InstanceLock(const std::string& path);

  /** False if unknown, because nothing can be locked. */
  bool held_elsewhere() const { return held_elsewhere_; }

 private:
  Descriptor file_;
  bool held_elsewhere_ = false;
};

}  // namespace tarvok::platform
