#pragma once

#include <array>
#include <string>
#include <vector>

#include "store/settings_store.h"

namespace tarvok::store {

/**
 * The five most recently opened projects, latest first, stored in the per-user settings under `Recent Files`.
 */
class RecentFiles {
 public:
  static constexpr int kCount = 5;

  explicit RecentFiles(SettingsStore& settings) : settings_(settings) {}

  /** Loads the stored entries. If `Recent1` is missing, the list stays empty. */
  void LoadRecentFiles();
  /**
   * Moves the path to the front, or adds it there and drops the fifth. Paths are stored absolute and
   * normalised; each entry that moves is stored under the key of its new position.
   */
  void AddRecentFile(const std::string& path);
  /** The entries to show: all before the first empty one. */
  std::vector<std::string> ShowRecentFiles() const;

 private:
  void Store(int index, const std::string& path);

  SettingsStore& settings_;
  std::array<std::string, kCount> entries_;
};

}  // namespace tarvok::store
