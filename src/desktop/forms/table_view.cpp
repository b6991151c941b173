#include "desktop/forms/table_view.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include <QAbstractButton>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/forms/cell_delegate.h"
#include "desktop/look/line_delegate.h"
#include "editing/table_operations.h"

namespace tarvok::desktop {
namespace {

constexpr std::string_view kColumnWidths = "Columns";  // settings group
constexpr int kWidestColumn = 320;
constexpr int kListMargin = 36;  // the arrow of a list, and a margin

std::optional<KeyCode> KeyOf(int key) {
  switch (key) {
    case Qt::Key_Backspace:
      return KeyCode::kBackspace;
    case Qt::Key_Delete:
      return KeyCode::kDelete;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return KeyCode::kReturn;
    case Qt::Key_Escape:
      return KeyCode::kEscape;
    case Qt::Key_Up:
      return KeyCode::kUp;
    case Qt::Key_Down:
      return KeyCode::kDown;
    case Qt::Key_Left:
      return KeyCode::kLeft;
    case Qt::Key_Right:
      return KeyCode::kRight;
    default:
      return std::nullopt;
  }
}

Selection CellsOf(const QItemSelectionRange& range) {
  return {range.top() + 1, range.left() + 1, range.bottom() + 1, range.right() + 1};
}

/** The row numbers. It measures the last one, which is the widest; Qt would measure two hundred of them at
 * each layout. */
class RowNumbers : public QHeaderView {
 public:
  explicit RowNumbers(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
    setSectionsClickable(true);
    setHighlightSections(true);
    setSectionResizeMode(QHeaderView::Fixed);
    setDefaultSectionSize(fontMetrics().height() + 8);
  }
  QSize sizeHint() const override {
    return count() == 0 ? QSize(0, 0) : sectionSizeFromContents(count() - 1);
  }
};

}  // namespace

TableView::TableView(TableModel& model, std::function<void()> acted, std::function<void()> moved,
                     QWidget* parent)
    : QTableView(parent), model_(model), acted_(std::move(acted)), moved_(std::move(moved)) {
  setObjectName(QStringLiteral("mgTest"));
  setAccessibleName(QStringLiteral("Table"));
  setVerticalHeader(new RowNumbers(this));
  setItemDelegate(new CellDelegate(model_, acted_, this));
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
  setAlternatingRowColors(true);
  setShowGrid(false);  // each cell draws its own grid lines
  setTabKeyNavigation(true);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  horizontalHeader()->setHighlightSections(false);
  setModel(&model_);  // last, since each of the settings above would lay the rows out again
  ShowRowTitle();
  Refresh();
}

/** Shows the title of the row numbers in the corner, which Qt leaves empty. */
void TableView::ShowRowTitle() {
  auto* corner = findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
  auto* layout = new QVBoxLayout(corner);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(new QLabel(QStringLiteral("*")), 0, Qt::AlignCenter);
}

void TableView::Refresh() {
  const bool before = std::exchange(showing_, true);
  model_.Refresh();
  HideRows(true);
  ShowSelection();
  if (isVisible()) scrollTo(currentIndex());
  showing_ = before;
  viewport()->update();
}

/** Shows the editor's selection. Also calls setCurrentIndex: Shift on a header begins at the cell that it
 * sets, else at the one that was clicked last. */
void TableView::ShowSelection() {
  const TableEditor& table = model_.table();
  if (table.rows() == 0) return;
  const bool before = std::exchange(showing_, true);
  const bool scrolls = hasAutoScroll();
  setAutoScroll(false);
  const Selection& cells = table.selection();
  setCurrentIndex(model_.index(table.anchor_row() - 1, table.anchor_column() - 1));
  selectionModel()->setCurrentIndex(model_.index(table.current_row() - 1, table.current_column() - 1),
                                    QItemSelectionModel::NoUpdate);
  selectionModel()->select(QItemSelection(model_.index(cells.top - 1, cells.left - 1),
                                          model_.index(cells.bottom - 1, cells.right - 1)),
                           QItemSelectionModel::ClearAndSelect);
  setAutoScroll(scrolls);
  showing_ = before;
}

void TableView::FilterRows(const QString& text) {
  filter_ = text;
  HideRows(false);
}

bool TableView::Matches(int row) const {
  bool found = filter_.isEmpty();
  for (int column = 0; column < model_.columnCount() && !found; ++column) {
    found = model_.index(row - 1, column).data().toString().contains(filter_, Qt::CaseInsensitive);
  }
  return found;
}

/** Tells the editor which rows are visible, and hides the others here. */
void TableView::HideRows(bool keep_current) {
  shown_rows_ = model_.table().ShowRows([this](int row) { return Matches(row); }, keep_current);
  for (int row = 0; row < model_.rowCount(); ++row) {
    const bool hidden = !model_.table().InSight(row + 1);
    if (isRowHidden(row) != hidden) setRowHidden(row, hidden);
  }
}

void TableView::RestoreColumns(SettingsStore& settings, const std::string& form) {
  const QByteArray kept =
      QByteArray::fromBase64(QByteArray::fromStdString(settings.Get(kColumnWidths, form)));
  if (horizontalHeader()->restoreState(kept) && horizontalHeader()->count() == model_.columnCount()) return;
  resizeColumnsToContents();
  for (int column = 0; column < model_.columnCount(); ++column) {
    const Column& about = model_.table().column(column + 1);
    const int letters = std::max<int>(about.rule.most, 8);
    int wanted = fontMetrics().averageCharWidth() * std::min(letters + 3, 28);
    for (const std::string& choice : about.list)
      wanted = std::max(wanted, LineWidth(model_.page().ToLetters(choice), fontMetrics()) + kListMargin);
    setColumnWidth(column, std::min(std::max(columnWidth(column) + 12, wanted), kWidestColumn));
  }
}

void TableView::KeepColumns(SettingsStore& settings, const std::string& form) const {
  settings.Set(kColumnWidths, form, horizontalHeader()->saveState().toBase64().toStdString());
}

bool TableView::OpensList(const QKeyEvent* event) const {
  const Entry entry = model_.table().EntryOf(currentIndex().row() + 1, currentIndex().column() + 1);
  if (entry != Entry::kList && entry != Entry::kEditList) return false;
  if (event->key() == Qt::Key_F4) return true;
  if (event->modifiers().testFlag(Qt::AltModifier) && event->key() == Qt::Key_Down) return true;
  if (entry == Entry::kEditList) return event->key() == Qt::Key_Space;
  return event->key() == Qt::Key_Backspace || (!event->text().isEmpty() && event->text().front().isPrint() &&
                                               event->modifiers() == Qt::NoModifier);
}

void TableView::keyPressEvent(QKeyEvent* event) {
  TableEditor& table = model_.table();
  if (LeavesTable(*event)) {
    // QTableView would go to the next cell.
    QWidget::focusNextPrevChild(event->key() == Qt::Key_Tab &&
                                !event->modifiers().testFlag(Qt::ShiftModifier));
    return;
  }
  if (!currentIndex().isValid()) return QTableView::keyPressEvent(event);
  if (!table.InSight(currentIndex().row() + 1)) return event->ignore();
  const auto plain = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  if (OpensList(event)) {
    edit(currentIndex());
    SeekInList(indexWidget(currentIndex()), event->text());
    return;
  }
  if (ExtendsBy(event)) return;
  const std::optional<KeyCode> code = plain == Qt::NoModifier ? KeyOf(event->key()) : std::nullopt;
  if (code) {
    if (*code == KeyCode::kDelete && !table.open()) {
      ClearCells(table);  // clears the whole selection
    } else {
      PressKey(table, {*code});
    }
    if (*code == KeyCode::kEscape && !table.open()) event->ignore();
    return acted_();
  }
  const bool types = !event->text().isEmpty() && event->text().front().isPrint() &&
                     !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  if (types) {
    for (const char byte : model_.page().ToBytes(event->text())) PressKey(table, Key::Of(byte));
    return acted_();
  }
  QTableView::keyPressEvent(event);
}

/** Handles Shift with a key that moves: extends the selection to where the key goes. */
bool TableView::ExtendsBy(const QKeyEvent* event) {
  static const std::map<int, CursorAction> kMoves = {
      {Qt::Key_Up, MoveUp},         {Qt::Key_Down, MoveDown},        {Qt::Key_Left, MoveLeft},
      {Qt::Key_Right, MoveRight},   {Qt::Key_Home, MoveHome},        {Qt::Key_End, MoveEnd},
      {Qt::Key_PageUp, MovePageUp}, {Qt::Key_PageDown, MovePageDown}};
  const auto move = kMoves.find(event->key());
  if (!event->modifiers().testFlag(Qt::ShiftModifier) || move == kMoves.end()) return false;
  const QModelIndex to = moveCursor(move->second, event->modifiers());
  if (!to.isValid()) return false;
  SelectCell(to, true);
  scrollTo(to);
  return true;
}

/** Selects a cell by mouse or key. The editor's rules remember where the selection began. */
void TableView::SelectCell(const QModelIndex& cell, bool extends) {
  TableEditor& table = model_.table();
  if (extends) {
    table.SelectTo(cell.row() + 1, cell.column() + 1);
  } else {
    table.GoTo(cell.row() + 1, cell.column() + 1);
  }
  ShowSelection();
  moved_();
  viewport()->update();
}

/** Called with what Qt would select in a press, a drag or a move. Only the cell that it reached counts,
 * because its first corner may be that of an older selection. */
void TableView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
  const QModelIndex to = indexAt(rect.bottomRight());
  if (to.isValid() && command.testFlag(QItemSelectionModel::Select))
    SelectCell(to, command.testFlag(QItemSelectionModel::Current));
}

void TableView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  TakeSelection();
}

void TableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  TakeSelection();
}

/** Makes what is shown as selected the editor's selection, however it was chosen. In a drag the selection
 * changes before the current cell, so both changes call this. */
void TableView::TakeSelection() {
  const QModelIndex current = currentIndex();
  if (showing_ || !current.isValid()) return;
  TableEditor& table = model_.table();
  const int row = current.row() + 1;
  const int column = current.column() + 1;
  const QItemSelection shown = selectionModel()->selection();
  if (shown.isEmpty()) {
    table.GoTo(row, column);
  } else {
    Selection cells = CellsOf(shown.first());
    for (const QItemSelectionRange& range : shown) {
      const Selection more = CellsOf(range);
      cells = {std::min(cells.top, more.top), std::min(cells.left, more.left),
               std::max(cells.bottom, more.bottom), std::max(cells.right, more.right)};
    }
    table.Select(cells, row, column);
  }
  if (shown.size() != 1) ShowSelection();
  moved_();
  viewport()->update();
}

void TableView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  viewport()->update();
}

}  // namespace tarvok::desktop
