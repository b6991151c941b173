#pragma once

#include <string>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/uses.h"
#include "store/status.h"

namespace tarvok::platform {

/** A log that starts anew when it is opened and is readable by the user alone. Each text is on its way to the
 * disk when Write returns. */
class LogFile {
 public:
  /** Takes a regular file, which nobody else may write to until this one closes (kExists where somebody does), or a
   * character device, such as a terminal, which stays as it is. */
  Status Open(const std::string& path);
  bool is_open() const { return file_.valid(); }
  /** Does nothing while no file is open; a full disk ends the log, not the session. */
  void Write(std::string_view text);
  /** Why the log has a gap, told once at its end: the first error of Write. */
  const Status& status() const { return status_; }

 private:
  std::string path_;
  Descriptor file_;
  Status status_;
};

}  // namespace tarvok::platform
