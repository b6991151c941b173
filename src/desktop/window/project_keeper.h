#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "desktop/uses.h"
#include "store/history.h"

namespace tarvok::desktop {

/** Keeps a project in the history, with the time. What goes wrong there is no reason to refuse a save: the
 * user is told once a run, and the save goes on. */
class ProjectKeeper {
 public:
  /** `tell` shows a text to the user and returns when he has read it. */
  ProjectKeeper(History& history, std::function<void(const std::string& text)> tell)
      : history_(history), tell_(std::move(tell)) {}

  void Keep(const std::string& project_path, std::string_view reason);

 private:
  History& history_;
  std::function<void(const std::string&)> tell_;
  bool told_ = false;
};

}  // namespace tarvok::desktop
