#include "desktop/forms/cell_delegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>

#include "desktop/forms/rule_filter.h"
#include "desktop/look/colours.h"
#include "desktop/look/line_delegate.h"
#include "editing/table_operations.h"

namespace tarvok::desktop {
namespace {

/** A combo box that opens its list at once and is finished after the first choice. */
class CellCombo : public QComboBox {
 public:
  using QComboBox::QComboBox;

  QString sought;  // the text that opened the list

 protected:
  void showEvent(QShowEvent* event) override {
    QComboBox::showEvent(event);
    if (isEditable()) return;
    QTimer::singleShot(0, this, [this] {
      showPopup();
      if (sought.isEmpty() || findText(sought, Qt::MatchStartsWith) < 0) return;
      view()->setCurrentIndex({});  // else the search would begin after the current entry
      view()->keyboardSearch(sought);
    });
  }
};

/** A field that opens with its caret at the end of the text. The view selects the text before it shows the
 * field, so that the next key would replace it. */
class CellField : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void showEvent(QShowEvent* event) override {
    QLineEdit::showEvent(event);
    end(false);
  }
};

/** Property of a widget over a cell: the user typed or chose something in it. */
constexpr const char* kTouched = "touched";

void NoteTouch(QWidget* widget, const QLineEdit* field) {
  QObject::connect(field, &QLineEdit::textEdited, widget, [widget] { widget->setProperty(kTouched, true); });
}

}  // namespace

void SeekInList(QWidget* list, const QString& typed) {
  if (auto* combo = dynamic_cast<CellCombo*>(list);
      combo != nullptr && !typed.isEmpty() && typed[0].isPrint())
    combo->sought = typed;
}

bool CellDelegate::eventFilter(QObject* watched, QEvent* event) {
  auto* editor = qobject_cast<QWidget*>(watched);
  const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
  if (editor == nullptr || key == nullptr || !LeavesTable(*key))
    return QStyledItemDelegate::eventFilter(watched, event);
  QKeyEvent again(key->type(), key->key(), key->modifiers());
  Q_EMIT commitData(editor);
  Q_EMIT closeEditor(editor, NoHint);
  QApplication::sendEvent(static_cast<QWidget*>(parent()), &again);
  return true;
}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
  const Column& column = model_.table().column(index.column() + 1);
  const Entry entry = model_.table().EntryOf(index.row() + 1, index.column() + 1);
  if (entry == Entry::kText) {
    auto* field = new CellField(parent);
    field->setFrame(false);
    field->setAccessibleName(QString::fromStdString(column.title));
    NoteTouch(field, field);
    return field;
  }
  auto* list = new CellCombo(parent);
  list->setAccessibleName(QString::fromStdString(column.title));
  list->addItem(QString());
  for (const std::string& text : model_.table().ListOf(index.row() + 1, index.column() + 1)) {
    list->addItem(model_.page().ToLetters(text));
  }
  list->setEditable(entry == Entry::kEditList);
  if (list->isEditable()) NoteTouch(list, list->lineEdit());
  auto* delegate = const_cast<CellDelegate*>(this);
  connect(list, &QComboBox::activated, delegate, [delegate, list] {
    if (!list->isVisible()) return;  // Return has chosen it already
    list->setProperty(kTouched, true);
    Q_EMIT delegate->commitData(list);
    Q_EMIT delegate->closeEditor(list);
  });
  return list;
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const Column& column = model_.table().column(index.column() + 1);
  const QString text = index.data(Qt::EditRole).toString();
  if (auto* list = qobject_cast<QComboBox*>(editor)) {
    const int entry = list->findText(text);
    list->setCurrentIndex(entry);
    if (list->isEditable()) {
      list->setEditText(text);
      if (entry >= 0) list->lineEdit()->selectAll();  // an entry is replaced as a whole
      list->setCompleter(nullptr);
    }
    return;
  }
  auto* field = static_cast<QLineEdit*>(editor);
  if (field->validator() != nullptr)
    return;  // filled before; another refresh must not overwrite what is typed
  field->setText(text);
  field->setValidator(new RuleFilter(column.rule, model_.page(), text, field));
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                                const QModelIndex& index) const {
  TableEditor& table = model_.table();
  const auto* list = qobject_cast<QComboBox*>(editor);
  const QString letters = list != nullptr ? list->currentText() : static_cast<QLineEdit*>(editor)->text();
  const bool erases =
      editor->property(kTouched).toBool() && !table.Unseen(index.row() + 1, index.column() + 1).empty();
  if (letters == index.data(Qt::EditRole).toString() && !erases) return;
  table.GoTo(index.row() + 1, index.column() + 1);
  EditCell(table, model_.page().ToBytes(letters));
  table.LeaveCell();
  edited_();
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const QPalette& palette = option.palette;
  const bool open = model_.IsOpen(index);
  const bool marked = option.state.testFlag(QStyle::State_Selected) && !open;
  const QPalette::ColorGroup group = GroupOf(option);
  QRect cell = option.rect;
  // The grid as rectangles: Qt draws its lines dot by dot, and they are invisible on a dark background.
  const QColor line = Mix(palette.color(QPalette::Text), palette.color(QPalette::Base), 20);
  painter->fillRect(cell.right(), cell.top(), 1, cell.height(), line);
  painter->fillRect(cell.left(), cell.bottom(), cell.width(), 1, line);
  cell.adjust(0, 0, -1, -1);
  // A cell that accepts keys looks like an input field.
  if (open || marked)
    painter->fillRect(cell, palette.color(group, open ? QPalette::Base : QPalette::Highlight));

  const Entry entry = model_.table().EntryOf(index.row() + 1, index.column() + 1);
  const bool current = index.row() + 1 == model_.table().current_row() &&
                       index.column() + 1 == model_.table().current_column();
  const QString text = index.data().toString();
  const QRect room = cell.adjusted(TextMargin(), 0, -TextMargin(), 0);
  const QPalette::ColorRole letters = marked                      ? QPalette::HighlightedText
                                      : entry == Entry::kReadOnly ? QPalette::PlaceholderText
                                                                  : QPalette::Text;
  painter->setPen(palette.color(group, letters));
  PaintLine(*painter, room, text, option.fontMetrics);
  if (!current) return;
  if (open || (option.state.testFlag(QStyle::State_HasFocus) && entry == Entry::kText)) {
    const int x = room.left() + option.fontMetrics.horizontalAdvance(text) + 1;
    painter->setPen(palette.color(group, marked ? QPalette::HighlightedText : QPalette::Text));
    if (x < cell.right()) painter->drawLine(x, cell.top() + 4, x, cell.bottom() - 4);
  }
  painter->setPen(QPen(palette.color(QPalette::Highlight), 2));
  painter->drawRect(cell.adjusted(1, 1, -1, -1));
}

}  // namespace tarvok::desktop
