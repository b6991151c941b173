#pragma once

#include <future>
#include <memory>
#include <utility>
#include <vector>

#include "desktop/uses.h"
#include "project/check.h"

namespace tarvok::desktop {

/** Checks a project on another thread. The project that the program is started with is thus checked while the
 * window is being created. */
class BackgroundCheck {
 public:
  void Begin(std::shared_ptr<const IniText> project) {
    begun_ = std::move(project);
    findings_ = std::async(std::launch::async, [project = begun_] { return CheckProject(*project); });
  }

  /** Returns the findings of a project. Waits for the check on the other thread if it was begun with the same
   * state of the project, else checks it now. */
  std::vector<Finding> Findings(const std::shared_ptr<const IniText>& project) {
    // The result is used once; afterwards the state of the project need not be kept.
    const bool is_begun = std::exchange(begun_, nullptr) == project;
    return findings_.valid() && is_begun ? findings_.get() : CheckProject(*project);
  }

 private:
  std::shared_ptr<const IniText> begun_;
  std::future<std::vector<Finding>> findings_;
};

}  // namespace tarvok::desktop
