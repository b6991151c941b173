#pragma once

#include <string>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/uses.h"
#include "store/status.h"

namespace tarvok::platform {

/**
 * A log that starts empty each time it is opened and is readable only by the user. Write returns once the
 * text is handed to the system.
 */
class LogFile {
 public:
  /**
   * Opens a regular file, which nobody else may write until this log closes (kExists if somebody does), or a
   * character device such as a terminal, which is left as it is.
   */
  Status Open(const std::string& path);
  bool is_open() const { return file_.valid(); }
  /** Does nothing if no file is open. A full disk ends the log, not the session. */
  void Write(std::string_view text);
  /** The first error of Write; if it is one, the log is incomplete. Report it once, at the end. */
  const Status& status() const { return status_; }

 private:
  std::string path_;
  Descriptor file_;
  Status status_;
};

}  // namespace tarvok::platform
