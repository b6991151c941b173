#pragma once

#include <functional>
#include <vector>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "project/search.h"

namespace tarvok::desktop {

/** Finds numbers, names, ports and texts anywhere in the open project while they are typed. Enter, or a double
 * click, goes there. */
class FindDialog : public QDialog {
 public:
  struct Ways {
    std::function<bool(const Place&)> is_offered;  // there is a form that shows the place
    std::function<bool(const Place&)> go;          // false if the form does not come up
  };

  FindDialog(DesktopParts& parts, Ways ways, QWidget* parent);

  /** Shows the dialog with what was typed last, ready to be typed over. */
  void Ask();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Search();
  void Go();
  void ShowCount(bool more);

  DesktopParts& parts_;
  Ways ways_;
  std::vector<Found> found_;
  QLineEdit* text_ = nullptr;
  QTreeWidget* list_ = nullptr;
  QLabel* count_ = nullptr;
};

}  // namespace tarvok::desktop
