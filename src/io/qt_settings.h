#pragma once

#include <QSettings>

#include "io/uses.h"
#include "store/settings_store.h"

namespace tarvok::io {

/**
 * The per-user settings in the INI file `Tarvok config/Tarvok config.ini` of the user's configuration folder.
 * Values are bytes and come back as they went in: UTF-8 is stored as text that a person can edit, anything
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
