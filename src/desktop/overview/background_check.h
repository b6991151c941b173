#pragma once

#include <future>
#include <memory>
#include <utility>
#include <vector>

#include "desktop/uses.h"
#include "project/check.h"

namespace tarvok::desktop {

/** Checks a project beside what the window does meanwhile: one that the program starts with is checked by the time the
 * window is made. */
class BackgroundCheck {
 public:
  void Begin(std::shared_ptr<const IniText> project) {
    begun_ = std::move(project);
    findings_ = std::async(std::launch::async, [project = begun_] { return CheckProject(*project); });
  }

  /** The findings of a project; at once, or as soon as they are there where the check of that very state was begun. */
  std::vector<Finding> Findings(const std::shared_ptr<const IniText>& project) {
    // What was begun is asked for once, and no state of a project is kept for it any longer.
    const bool is_begun = std::exchange(begun_, nullptr) == project;
    return findings_.valid() && is_begun ? findings_.get() : CheckProject(*project);
  }

 private:
  std::shared_ptr<const IniText> begun_;
  std::future<std::vector<Finding>> findings_;
};

}  // namespace tarvok::desktop
