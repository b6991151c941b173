#pragma once

#include <vector>

#include <QDialog>
#include <QListWidget>

#include "desktop/uses.h"
#include "io/code_page.h"
#include "project/search.h"

namespace tarvok::desktop {

/** Lists what refers to a row. Accepted when the user chooses a line to go to. */
class UsedByDialog : public QDialog {
 public:
  UsedByDialog(std::vector<Found> found, int row, const CodePage& page, QWidget* parent);

  /** The place of the chosen line. */
  const Place& place() const { return found_[static_cast<std::size_t>(list_->currentRow())].place; }

 private:
  std::vector<Found> found_;
  QListWidget* list_;
};

}  // namespace tarvok::desktop
