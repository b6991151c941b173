#pragma once

#include <map>
#include <string>

#include "store/settings_store.h"
#include "tests/floors.h"

namespace tarvok::test {

/** Per-user settings in memory. */
class MemorySettings : public SettingsStore {
 public:
  std::map<std::string, std::string> values;  // by GROUP/KEY

  std::string Get(std::string_view group, std::string_view key) override { return values[Path(group, key)]; }
  void Set(std::string_view group, std::string_view key, std::string_view value) override {
    values[Path(group, key)] = value;
  }

 private:
  static std::string Path(std::string_view group, std::string_view key) {
    return std::string(group) + "/" + std::string(key);
  }
};

}  // namespace tarvok::test
