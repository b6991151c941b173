#pragma once

#include <string>

#include <QString>
#include <QWidget>

#include "desktop/uses.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

/**
 * The project file dialogs. They open in the folder used last, begin without a name and ask nothing about
 * existing files: the commands ask that themselves. "" is a cancelled dialog.
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
