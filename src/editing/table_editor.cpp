#include "editing/table_editor.h"

#include <algorithm>
#include <utility>

namespace tarvok::editing {
namespace {

constexpr std::string_view kNotInList = "is not in the list";
constexpr std::string_view kReadOnly = "can't be changed here";
/** The opposite end of a range; `at` itself if it is at neither end. */
int Across(int at, int first, int last) {
  return at == first ? last : at == last ? first : at;
}

constexpr std::string_view kReserved = "cannot be used alone: it means that nothing is set";

}  // namespace

void TableEditor::Clear() {
  rows_.clear();
  undo_.Clear();
  open_.reset();
  MoveTo(1, 1);
}

void TableEditor::Load(TableRow row) {
  row.cells.resize(options_.columns.size());
  row.in_sight = true;
  rows_.push_back(std::move(row));
}

void TableEditor::Renumber() {
  undo_.Clear();  // undoing would restore the old numbers
  for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i].origin = static_cast<int>(i) + 1;
}

const std::string& TableEditor::Cell(int row, int column) const {
  static const std::string kNothing;
  if (row < 1 || row > rows() || column < 1 || column > columns()) return kNothing;
  return rows_[static_cast<std::size_t>(row) - 1].cells[static_cast<std::size_t>(column) - 1];
}

const std::string& TableEditor::Unseen(int row, int column) const {
  static const std::string kNothing;
  return row < 1 || row > rows() || column < 1 ? kNothing
                                               : this->row(row).Unseen(static_cast<std::size_t>(column) - 1);
}

std::vector<std::string> TableEditor::ListOf(int row, int column) const {
  const Column& stated = this->column(column);
  return stated.list_of ? stated.list_of(row) : stated.list;
}

Entry TableEditor::EntryOf(int row, int column) const {
  const Column& stated = this->column(column);
  return stated.entry_of ? stated.entry_of(row) : stated.entry;
}

bool TableEditor::GoTo(int row, int column) {
  if (row < 1 || row > rows() || column < 1 || column > columns()) return false;
  LeaveCell();
  MoveTo(row, column);
  return true;
}

void TableEditor::SelectTo(int row, int column) {
  LeaveCell();
  row_ = std::clamp(row, 1, std::max(rows(), 1));
  column_ = std::clamp(column, 1, columns());
  selected_ = {std::min(row_, anchor_row_), std::min(column_, anchor_column_), std::max(row_, anchor_row_),
               std::max(column_, anchor_column_)};
}

void TableEditor::Select(const Selection& cells, int row, int column) {
  LeaveCell();
  row_ = row;
  column_ = column;
  selected_ = cells;
  const bool at_corner = (anchor_row_ == cells.top || anchor_row_ == cells.bottom) &&
                         (anchor_column_ == cells.left || anchor_column_ == cells.right);
  if (at_corner) return;
  anchor_row_ = Across(row, cells.top, cells.bottom);
  anchor_column_ = Across(column, cells.left, cells.right);
}

int TableEditor::ShowRows(const std::function<bool(int row)>& matches, bool keep_current) {
  int shown = 0;
  for (int row = 1; row <= rows(); ++row) {
    bool& in_sight = rows_[static_cast<std::size_t>(row) - 1].in_sight;
    in_sight = (keep_current && row == row_ && in_sight) || matches(row);
    shown += in_sight ? 1 : 0;
  }
  if (shown > 0 && !HasCurrent()) GoToTop();
  return shown;
}

int TableEditor::NextInSight(int from, int step) const {
  for (int row = from; row >= 1 && row <= rows(); row += step) {
    if (InSight(row)) return row;
  }
  return 0;
}

std::vector<int> TableEditor::RowsInSight(int first, int last) const {
  std::vector<int> shown;
  for (int row = first; row <= std::min(last, rows()); ++row) {
    if (InSight(row)) shown.push_back(row);
  }
  return shown;
}

void TableEditor::LeaveCell() {
  DropReserved();
  open_.reset();
  undo_.Part();
}

/** If the reserved text was typed into the current cell, treats its keys as dropped. */
void TableEditor::DropReserved() {
  const UndoStep* step = undo_.Joined();
  if (step == nullptr || step->rows_before || row_ > rows()) return;
  const std::string_view reserved = column(column_).rule.reserved;
  if (reserved.empty() || Cell(row_, column_) != reserved) return;
  for (const UndoStep::Cell& change : step->cells) {
    if (change.row == row_ && change.column == column_) return SetCell(row_, column_, {});
  }
}

void TableEditor::Open() {
  if (!HasCurrent() || EntryOf(row_, column_) == Entry::kReadOnly || open_) return;
  open_ = OpenField{.text = Cell(row_, column_), .before = row(row_)};
}

void TableEditor::Escape() {
  if (open_->touched) PutBack(open_->before);
  LeaveCell();
}

void TableEditor::SetCell(int row, int column, std::string_view text) {
  const std::string before = Cell(row, column);
  if (before == text) return;
  Put(row, column, {std::string(text)});
  const Column& stated = this->column(column);
  if (stated.changed) stated.changed(row, before);
}

void TableEditor::EraseCell(int row, int column) {
  const std::string before = Cell(row, column);
  if (!Put(row, column, {}) || before.empty()) return;
  const Column& stated = this->column(column);
  if (stated.changed) stated.changed(row, before);
}

void TableEditor::SetHidden(int row, std::vector<std::string> hidden) {
  rows_[static_cast<std::size_t>(row) - 1].hidden = std::move(hidden);
}

void TableEditor::Begin() {
  DropReserved();
  open_.reset();
  undo_.Begin();
}

void TableEditor::End() {
  UndoStep* step = undo_.Joined();
  if (step != nullptr && step->rows_before) step->rows_after = rows_;
  undo_.End();
}

void TableEditor::Write(std::string_view text) {
  if (open_) {
    open_->text = text;
    open_->touched = true;
  }
  if (open_ && text == open_->before.cells[static_cast<std::size_t>(column_) - 1]) {
    PutBack(open_->before);
  } else {
    SetCell(row_, column_, text);
  }
  Put(row_, column_, {std::string(text)});
  Changed();
}

void TableEditor::ReplaceRows(std::vector<TableRow> rows) {
  const auto same = [](const TableRow& a, const TableRow& b) {
    return a.origin == b.origin && a.cells == b.cells && a.hidden == b.hidden && a.unseen == b.unseen;
  };
  if (std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(), same)) return;
  open_.reset();
  undo_.Begin();
  UndoStep& step = undo_.Now(row_, column_);
  if (!step.rows_before) {
    step.rows_before = rows_;
    for (const UndoStep::Cell& change : step.cells) {
      SetState((*step.rows_before)[static_cast<std::size_t>(change.row) - 1], change.column, change.before);
    }
  }
  rows_ = std::move(rows);
  step.rows_after = rows_;
  undo_.End();
  for (int* row : {&row_, &anchor_row_, &selected_.top, &selected_.bottom})
    *row = std::clamp(*row, 1, std::max(this->rows(), 1));
  Changed();
}

/** Restores the current row without calling the rules that respond to changes. */
void TableEditor::PutBack(const TableRow& before) {
  for (int column = 1; column <= columns(); ++column) {
    const auto index = static_cast<std::size_t>(column) - 1;
    Put(row_, column, {before.cells[index], before.Unseen(index)});
  }
}

/** Changes a cell as part of the current step; false if nothing changes. */
bool TableEditor::Put(int row, int column, CellState state) {
  const CellState before{Cell(row, column), Unseen(row, column)};
  if (before == state) return false;
  UndoStep& step = undo_.Now(row_, column_);
  const auto found = std::find_if(step.cells.begin(), step.cells.end(), [&](const UndoStep::Cell& change) {
    return change.row == row && change.column == column;
  });
  SetState(rows_[static_cast<std::size_t>(row) - 1], column, state);
  if (found != step.cells.end()) {
    found->after = std::move(state);
  } else {
    step.cells.push_back({row, column, before, std::move(state)});
  }
  return true;
}

void TableEditor::Restore(const UndoStep& step, bool after) {
  open_.reset();
  if (step.rows_before) {
    rows_ = after ? step.rows_after : *step.rows_before;
  } else {
    for (const UndoStep::Cell& change : step.cells) {
      SetState(rows_[static_cast<std::size_t>(change.row) - 1], change.column,
               after ? change.after : change.before);
    }
  }
  MoveTo(std::clamp(step.row, 1, std::max(rows(), 1)), step.column);
  // The user must see what was undone.
  if (!rows_.empty()) rows_[static_cast<std::size_t>(row_) - 1].in_sight = true;
}

void TableEditor::Undo() {
  if (!CanUndo()) return;
  Restore(undo_.Undo(), false);
  Changed();
}

void TableEditor::Redo() {
  if (!CanRedo()) return;
  Restore(undo_.Redo(), true);
  Changed();
}

void TableEditor::TakeBack(std::size_t steps) {
  while (undo_.Count() > steps) Restore(undo_.Undo(), false);
  undo_.Forget();
}

std::optional<std::string> TableEditor::Fitting(int row, int column, std::string_view text,
                                                std::string& why) const {
  if (text == Cell(row, column)) return std::string(text);  // a loaded value may break the rule
  const Column& stated = this->column(column);
  const Entry kind = EntryOf(row, column);
  if (kind == Entry::kReadOnly) {
    why = kReadOnly;
    return std::nullopt;
  }
  if (text.empty()) return std::string();
  if (kind != Entry::kText) {
    const std::vector<std::string> list = ListOf(row, column);
    if (std::find(list.begin(), list.end(), text) != list.end()) return std::string(text);
    why = kNotInList;
    if (kind == Entry::kList) return std::nullopt;
  }
  std::string broken;
  std::optional<std::string> typed = TypeWhole(stated.rule, text, &broken);
  if (typed && *typed == stated.rule.reserved) {
    broken = kReserved;
    typed.reset();
  }
  if (!typed) why = why.empty() ? broken : why + ", and " + broken;
  return typed;
}

}  // namespace tarvok::editing
