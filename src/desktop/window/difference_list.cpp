#include "desktop/window/difference_list.h"

#include <utility>

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

#include "desktop/look/shown_text.h"

namespace tarvok::desktop {

DifferenceList::DifferenceList(const CodePage& page, SideNames names, QString nothing)
    : page_(page), names_(names), nothing_(std::move(nothing)) {
  count_ = new QLabel;
  count_->setObjectName(QStringLiteral("DifferenceCount"));
  count_->setTextFormat(Qt::PlainText);
  count_->setWordWrap(true);
  list_ = new QListWidget;
  list_->setObjectName(QStringLiteral("Differences"));
  list_->setAccessibleName(QStringLiteral("Differences"));
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setUniformItemSizes(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(count_);
  layout->addWidget(list_, 1);
  count_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
}

void DifferenceList::ShowDifferences(const std::vector<Difference>& differences) {
  if (differences.empty()) {
    ShowText(nothing_);
    return;
  }
  const auto letters = [&](std::string_view bytes) { return page_.ToLetters(bytes).toStdString(); };
  QStringList lines;
  for (const Difference& difference : differences)
    lines += Words(DifferenceLine(difference, letters, names_));
  list_->clear();
  list_->addItems(lines);
  list_->setCurrentRow(0);
  list_->show();
  count_->setText(lines.size() == 1 ? QStringLiteral("1 difference")
                                    : QStringLiteral("%1 differences").arg(lines.size()));
}

void DifferenceList::ShowText(const QString& text) {
  list_->clear();
  list_->hide();
  count_->setText(text);
}

void ShowInDialog(QWidget* list, const QString& name, const QString& title, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(name);
  dialog.setWindowTitle(title);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  auto* layout = new QVBoxLayout(&dialog);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addWidget(list, 1);
  layout->addWidget(buttons);
  dialog.resize(640, 400);
  dialog.exec();
}

}  // namespace tarvok::desktop
