#include "desktop/window/file_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>

#include "desktop/look/shown_text.h"
#include "desktop/window/desktop_parts.h"
#include "frame/main_frame.h"

namespace tarvok::desktop {

std::string FileDialogs::Run(QWidget* parent, const QString& title, bool save) {
  QFileDialog dialog(parent, title);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setNameFilters({Words(kProjectFiles), QStringLiteral("All files (*)")});
  const QString folder = PathText(settings_.Get(desktop_key::kGroup, desktop_key::kLastFolder));
  if (QFileInfo(folder).isDir()) dialog.setDirectory(folder);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  const QString path = dialog.selectedFiles().constFirst();
  settings_.Set(desktop_key::kGroup, desktop_key::kLastFolder, PathBytes(QFileInfo(path).absolutePath()));
  return PathBytes(path);
}

std::string FileDialogs::ChooseNewFile(QWidget* parent, const QString& title) {
  return WithProjectExtension(Run(parent, title, true));
}

std::string FileDialogs::ChooseExistingFile(QWidget* parent, const QString& title) {
  return Run(parent, title, false);
}

}  // namespace tarvok::desktop
