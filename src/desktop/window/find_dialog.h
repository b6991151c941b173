#pragma once

#include <functional>
#include <vector>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "frame/command.h"
#include "project/search.h"

namespace tarvok::desktop {

/** Finds numbers, names, ports and texts anywhere in the open project as the user types. Enter or a double
 * click goes to the selected place. */
class FindDialog : public QDialog {
 public:
  struct Commands {
    std::function<const Command*(const Place&)> find;  // the command whose form shows the place, or nullptr
    std::function<bool(const Place&)> go;              // shows the place; false if its form does not open
  };

  FindDialog(DesktopParts& parts, Commands commands, QWidget* parent);

  /** Shows the dialog with the last text selected. */
  void Ask();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Search();
  void Go();
  void ShowCount(bool more);

  DesktopParts& parts_;
  Commands commands_;
  std::vector<Found> found_;
  QLineEdit* text_ = nullptr;
  QTreeWidget* list_ = nullptr;
  QLabel* count_ = nullptr;
};

}  // namespace tarvok::desktop
