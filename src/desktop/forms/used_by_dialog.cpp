#include "desktop/forms/used_by_dialog.h"

#include <utility>

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvok::desktop {

UsedByDialog::UsedByDialog(std::vector<Found> found, int row, const CodePage& page, QWidget* parent)
    : QDialog(parent), found_(std::move(found)), list_(new QListWidget) {
  setWindowTitle(QStringLiteral("Used by"));
  setObjectName(QStringLiteral("UsedBy"));
  auto* column = new QVBoxLayout(this);
  auto* words =
      new QLabel(found_.empty() ? QStringLiteral("Nothing in the saved project refers to row %1.").arg(row)
                                : QStringLiteral("What refers to row %1 in the saved project:").arg(row));
  column->addWidget(words);
  list_->setObjectName(QStringLiteral("UsedByList"));
  list_->setAccessibleName(QStringLiteral("What refers to the row"));
  for (const Found& one : found_) {
    QString line = page.ToLetters(one.row);
    if (!one.field.empty()) line += QStringLiteral(", ") + page.ToLetters(one.field);
    list_->addItem(line);
  }
  list_->setVisible(!found_.empty());
  list_->setCurrentRow(0);
  column->addWidget(list_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
  if (!found_.empty()) {
    QPushButton* go = buttons->addButton(QStringLiteral("&Go There"), QDialogButtonBox::AcceptRole);
    go->setDefault(true);
    resize(520, 320);
  }
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QListWidget::itemActivated, this, &QDialog::accept);
  column->addWidget(buttons);
}

}  // namespace tarvok::desktop
