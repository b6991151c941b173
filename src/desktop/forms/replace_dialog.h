#pragma once

#include <functional>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>

#include "desktop/uses.h"
#include "editing/table_operations.h"
#include "io/code_page.h"

namespace tarvok::desktop {

/** Find and replace in one table. `acted` is called after every change of the table or its current cell. */
class ReplaceDialog : public QDialog {
 public:
  ReplaceDialog(TableEditor& table, const CodePage& page, std::function<void()> acted, QWidget* parent);

 private:
  void FindNext();
  void ReplaceAll();

  TableEditor& table_;
  const CodePage& page_;
  std::function<void()> acted_;
  QLineEdit* find_;
  QLineEdit* replace_;
  QLabel* result_;
};

}  // namespace tarvok::desktop
