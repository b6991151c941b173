#pragma once

#include <functional>
#include <optional>
#include <string>

#include "link/event_server.h"
#include "programs/uses.h"
#include "store/file_system.h"

namespace tarvok::ctl {

/** Where the password of a session comes from: a file, the environment, or the terminal without echo. */
class PasswordSource {
 public:
  /** `file` is the option's value, empty without the option. An error where a given password is none, or
   * where there is no way to ask for one. */
  static Result<PasswordSource> Find(FileSystem& files, const std::string& file);

  /** The password of the next try. A given one is the same each time; at the terminal the user is asked,
   * events being served meanwhile, and nothing comes where he ends the input or `stopped` says true. */
  std::optional<std::string> Next(EventServer& events, const std::function<bool()>& stopped);

 private:
  std::string given_;
};

}  // namespace tarvok::ctl
