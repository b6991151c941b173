#include "desktop/forms/cell_delegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>

#include "desktop/forms/rule_filter.h"

namespace tarvok {
namespace {

/** A combo that shows its list at once and is done with the first choice. */
class CellCombo : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void showEvent(QShowEvent* event) override {
    QComboBox::showEvent(event);
    if (!isEditable()) QTimer::singleShot(0, this, &QComboBox::showPopup);
  }
};

}  // namespace

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
  const Column& column = model_.table().column(index.column() + 1);
  const Entry entry = model_.table().EntryOf(index.row() + 1, index.column() + 1);
  if (entry == Entry::kText) {
    auto* field = new QLineEdit(parent);
    field->setFrame(false);
    field->setAccessibleName(QString::fromStdString(column.title));
    return field;
  }
  auto* list = new CellCombo(parent);
  list->setAccessibleName(QString::fromStdString(column.title));
  list->addItem(QString());
  for (const std::string& text : model_.table().ListOf(index.row() + 1, index.column() + 1)) {
    list->addItem(model_.page().ToLetters(text));
  }
  list->setEditable(entry == Entry::kEditList);
  auto* delegate = const_cast<CellDelegate*>(this);
  connect(list, &QComboBox::activated, delegate, [delegate, list] {
    if (!list->isVisible()) return;  // Return has taken it already
    Q_EMIT delegate->commitData(list);
    Q_EMIT delegate->closeEditor(list);
  });
  return list;
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const Column& column = model_.table().column(index.column() + 1);
  const QString text = index.data(Qt::EditRole).toString();
  if (auto* list = qobject_cast<QComboBox*>(editor)) {
    list->setCurrentIndex(list->findText(text));
    if (list->isEditable()) {
      list->setEditText(text);
      list->lineEdit()->selectAll();
      list->setCompleter(nullptr);
    }
    return;
  }
  auto* field = static_cast<QLineEdit*>(editor);
  if (field->validator() != nullptr) return;  // filled already: another refresh must not eat what is typed
  field->setText(text);
  field->setValidator(new RuleFilter(column.rule, model_.page(), text, field));
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                                const QModelIndex& index) const {
  TableEditor& table = model_.table();
  const auto* list = qobject_cast<QComboBox*>(editor);
  const QString letters = list != nullptr ? list->currentText() : static_cast<QLineEdit*>(editor)->text();
  if (letters == index.data(Qt::EditRole).toString()) return;
  table.GoTo(index.row() + 1, index.column() + 1);
  table.EditText(model_.page().ToBytes(letters));
  table.LeaveCell();
  edited_();
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  if (model_.IsOpen(index)) {
    // A cell that takes keys looks like the field that it is.
    cell.state &= ~QStyle::State_Selected;
    painter->fillRect(option.rect, option.palette.base());
  }
  QStyledItemDelegate::paint(painter, cell, index);
  const bool current = index.row() + 1 == model_.table().current_row() &&
                       index.column() + 1 == model_.table().current_column();
  if (current) {
    painter->save();
    painter->setPen(QPen(option.palette.color(QPalette::Highlight), 2));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
  }
  if (model_.IsOpen(index) || (current && option.state.testFlag(QStyle::State_HasFocus) &&
                               model_.table().EntryOf(index.row() + 1, index.column() + 1) == Entry::kText)) {
    const int margin = QApplication::style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
    const int x =
        option.rect.left() + margin + option.fontMetrics.horizontalAdvance(index.data().toString()) + 1;
    const bool marked = option.state.testFlag(QStyle::State_Selected) && !model_.IsOpen(index);
    painter->setPen(option.palette.color(marked ? QPalette::HighlightedText : QPalette::Text));
    if (x < option.rect.right()) painter->drawLine(x, option.rect.top() + 4, x, option.rect.bottom() - 4);
  }
}

}  // namespace tarvok
