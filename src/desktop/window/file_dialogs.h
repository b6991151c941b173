#pragma once

#include <string>

#include <QString>
#include <QWidget>

#include "desktop/uses.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

/**
 * The dialogs for project files. They open in the last used folder, without a file name, and do not ask about
 * existing files: the commands do. They return "" if the user cancels.
 */
class FileDialogs {
 public:
  explicit FileDialogs(SettingsStore& settings) : settings_(settings) {}

  std::string ChooseNewFile(QWidget* parent, const QString& title);
  std::string ChooseExistingFile(QWidget* parent, const QString& title);

 private:
  std::string Run(QWidget* parent, const QString& title, bool save);

  SettingsStore& settings_;
};

}  // namespace tarvok::desktop
