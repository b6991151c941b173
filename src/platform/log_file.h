#pragma once

#include <string>
#include <string_view>

#include "platform/descriptor.h"
#include "store/status.h"

namespace tarvok {

/** A log that starts anew when it is opened and is readable by the user alone. Each text is on its way to the
 * disk when Write returns. */
class LogFile {
 public:
  Status Open(const std::string& path);
  bool is_open() const { return file_.valid(); }
  /** Does nothing while no file is open; a full disk ends the log, not the session. */
  void Write(std::string_view text);

 private:
  Descriptor file_;
};

}  // namespace tarvok
