#pragma once

#include <string>

#include "platform/descriptor.h"
#include "platform/uses.h"

namespace tarvok::platform {

/** Tells a program whether another one of this user runs already, and tells the next one of this. The kernel lets go of
 * the lock when its program ends, however that ends; an empty file stays. */
class InstanceLock {
 public:
  /** The file is made where it isn't there; its folder belongs to the user alone. */
  explicit InstanceLock(const std::string& path);

  /** Only what is known: false where nothing can be locked. */
  bool held_elsewhere() const { return held_elsewhere_; }

 private:
  Descriptor file_;
  bool held_elsewhere_ = false;
};

}  // namespace tarvok::platform
