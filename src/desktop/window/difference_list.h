#pragma once

#include <vector>

#include <QLabel>
#include <QListWidget>
#include <QWidget>

#include "desktop/uses.h"
#include "io/code_page.h"
#include "project/difference_words.h"

namespace tarvok::desktop {

/** The differences of two projects, a line each, below a line that counts them or says that there are none. */
class DifferenceList : public QWidget {
 public:
  /** `nothing` stands in the place of the list where nothing differs. */
  DifferenceList(const CodePage& page, SideNames names, QString nothing);

  void ShowDifferences(const std::vector<Difference>& differences);
  /** A text in the place of the list. */
  void ShowText(const QString& text);

 private:
  const CodePage& page_;
  SideNames names_;
  QString nothing_;
  QLabel* count_ = nullptr;
  QListWidget* list_ = nullptr;
};

/** Shows the list in a modal window of that name until it is closed; the window takes the list over. */
void ShowInDialog(DifferenceList* list, const QString& name, const QString& title, QWidget* parent);

}  // namespace tarvok::desktop
