#include "desktop/forms/replace_dialog.h"

#include <utility>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvok::desktop {

ReplaceDialog::ReplaceDialog(TableEditor& table, const CodePage& page, std::function<void()> acted,
                             QWidget* parent)
    : QDialog(parent), table_(table), page_(page), acted_(std::move(acted)) {
  setWindowTitle(QStringLiteral("Find and Replace"));
  setObjectName(QStringLiteral("Replace"));
  find_ = new QLineEdit;
  find_->setObjectName(QStringLiteral("FindText"));
  replace_ = new QLineEdit;
  replace_->setObjectName(QStringLiteral("ReplaceText"));
  result_ = new QLabel(QStringLiteral(" "));
  result_->setObjectName(QStringLiteral("Result"));
  auto* fields = new QFormLayout;
  fields->addRow(QStringLiteral("&Find :"), find_);
  fields->addRow(QStringLiteral("Replace &by :"), replace_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* next = buttons->addButton(QStringLiteral("Find &Next"), QDialogButtonBox::ActionRole);
  QPushButton* all = buttons->addButton(QStringLiteral("Replace &All"), QDialogButtonBox::ActionRole);
  connect(next, &QPushButton::clicked, this, &ReplaceDialog::FindNext);
  connect(all, &QPushButton::clicked, this, &ReplaceDialog::ReplaceAll);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addLayout(fields);
  column->addWidget(result_);
  column->addWidget(buttons);
  // Else the dialog would make its first button the default one.
  buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
  next->setDefault(true);
}

void ReplaceDialog::FindNext() {
  const CodePage::Taken find = page_.Take(find_->text());
  const bool found = find.lacking.isEmpty() && editing::FindNext(table_, find.bytes);
  result_->setText(found ? QStringLiteral("Row %1").arg(table_.current_row()) : QStringLiteral("Not found"));
  acted_();
}

void ReplaceDialog::ReplaceAll() {
  const CodePage::Taken find = page_.Take(find_->text());
  const CodePage::Taken by = page_.Take(replace_->text());
  if (const QString lacking = find.lacking + by.lacking; !lacking.isEmpty())
    return result_->setText(QStringLiteral("Nothing was replaced: ") + page_.WhyLacking(lacking));
  std::vector<Refusal> refused;
  const int count = editing::ReplaceAll(table_, find.bytes, by.bytes, refused);
  QString text = QStringLiteral("%1 cells changed").arg(count);
  if (!refused.empty()) text += QStringLiteral(", %1 left as they were").arg(refused.size());
  result_->setText(text);
  table_.refused = std::move(refused);
  acted_();
}

}  // namespace tarvok::desktop
