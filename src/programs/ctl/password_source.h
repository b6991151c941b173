#pragma once

#include <functional>
#include <optional>
#include <string>

#include "link/event_server.h"
#include "programs/uses.h"
#include "store/file_system.h"

namespace tarvok::ctl {

/** Supplies the password of a session from a file, the environment, or the terminal without echo. */
class PasswordSource {
 public:
  /**
   * `file` is the value of the option, empty if not given. An error if a given password is invalid, or if
   * there is no way to ask for one.
   */
  static Result<PasswordSource> Find(FileSystem& files, const std::string& file);

  /**
   * The password for the next attempt. A given password is the same each time; on a terminal the user is
   * asked, while events are served. nullopt at the end of input or when `stopped` returns true.
   */
  std::optional<std::string> Next(EventServer& events, const std::function<bool()>& stopped);

 private:
  std::string given_;
};

}  // namespace tarvok::ctl
