#pragma once

#include <vector>

#include <QDialog>
#include <QPushButton>
#include <QTreeWidget>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "desktop/window/difference_list.h"

namespace tarvok::desktop {

/** The earlier versions of the open project: when and why each was kept, how it differs from the current one,
 * and a button to bring it back. Accepted after a version was brought back. */
class VersionsDialog : public QDialog {
 public:
  VersionsDialog(DesktopParts& parts, QWidget* parent);

 private:
  void Fill();
  void ShowDifference();
  void BringBack();

  DesktopParts& parts_;
  std::vector<KeptVersion> versions_;
  QTreeWidget* list_ = nullptr;
  DifferenceList* difference_ = nullptr;
  QPushButton* bring_back_ = nullptr;
};

}  // namespace tarvok::desktop
