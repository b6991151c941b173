#pragma once

#include <array>
#include <string>
#include <vector>

#include "store/settings_store.h"

namespace tarvok::store {

/** The five projects opened last, the latest first, kept in the per-user settings under `Recent Files`. */
class RecentFiles {
 public:
  static constexpr int kCount = 5;

  explicit RecentFiles(SettingsStore& settings) : settings_(settings) {}

  /** Reads the keys by name; nothing stored, or no `Recent1`, leaves the list empty. */
  void LoadRecentFiles();
  /** Moves the path to the head, or adds it there and drops the fifth. Stored absolute and cleaned; each
   * entry that moves is stored under the key of its new place. */
  void AddRecentFile(const std::string& path);
  /** The entries to show: those in front of the first empty one. */
  std::vector<std::string> ShowRecentFiles() const;

 private:
  void Store(int index, const std::string& path);

  SettingsStore& settings_;
  std::array<std::string, kCount> entries_;
};

}  // namespace tarvok::store
