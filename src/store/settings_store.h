#pragma once

#include <string>
#include <string_view>

namespace tarvok::store {

/** The per-user settings: groups of named values. A missing value reads as "". */
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string Get(std::string_view group, std::string_view key) = 0;
  virtual void Set(std::string_view group, std::string_view key, std::string_view value) = 0;
};

}  // namespace tarvok::store
