#pragma once

#include <QSettings>

#include "io/uses.h"
#include "store/settings_store.h"

namespace tarvok::io {

/**
 * The per-user settings in the INI file `Tarvok config/Tarvok config.ini` in the user's configuration folder.
 * Values are bytes and are read back unchanged: UTF-8 is stored as text that can be edited by hand, anything
 * else as Qt's byte array.
 */
class QtSettings : public SettingsStore {
 public:
  QtSettings();

  std::string Get(std::string_view group, std::string_view key) override;
  void Set(std::string_view group, std::string_view key, std::string_view value) override;

 private:
  QSettings settings_;
};

}  // namespace tarvok::io
