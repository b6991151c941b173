#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "desktop/uses.h"
#include "store/history.h"

namespace tarvok::desktop {

/** Keeps projects in the history with the current time. A failure is not a reason to refuse a save: the user
 * is warned once per run, and the save continues. */
class ProjectKeeper {
 public:
  /** `warn` shows a text to the user and returns when it has been closed. */
  ProjectKeeper(History& history, std::function<void(const std::string& text)> warn)
      : history_(history), warn_(std::move(warn)) {}

  void Keep(const std::string& project_path, std::string_view reason);

 private:
  History& history_;
  std::function<void(const std::string&)> warn_;
  bool warned_ = false;
};

}  // namespace tarvok::desktop
