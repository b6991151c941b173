#pragma once

#include <vector>

#include <QLabel>
#include <QListWidget>
#include <QWidget>

#include "desktop/uses.h"
#include "io/code_page.h"
#include "project/difference_line.h"

namespace tarvok::desktop {

/** The differences between two projects, one per line, below their count or a text if there are none. */
class DifferenceList : public QWidget {
 public:
  /** `nothing` is shown if nothing differs. `page` must outlive the list. */
  DifferenceList(const CodePage& page, SideNames names, QString nothing);

  void ShowDifferences(const std::vector<Difference>& differences);
  /** Shows a text instead of the list. */
  void ShowText(const QString& text);

 private:
  const CodePage& page_;
  SideNames names_;
  QString nothing_;
  QLabel* count_ = nullptr;
  QListWidget* list_ = nullptr;
};

/** Shows the list in a modal window with that object name, and returns when it is closed. Takes ownership of
 * the list. */
void ShowInDialog(QWidget* list, const QString& name, const QString& title, QWidget* parent);

}  // namespace tarvok::desktop
