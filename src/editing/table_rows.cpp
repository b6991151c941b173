// Adding, inserting, deleting, sorting and filtering rows.

#include <algorithm>
#include <utility>

#include "editing/table_editor.h"

namespace tarvok::editing {
namespace {

/** A cell for sorting. Numbers may have any number of digits: without leading zeros, the longer one is
 * greater. */
struct SortText {
  std::string_view text;
  bool number = false;

  explicit SortText(std::string_view from) : text(from) {
    number = !from.empty() && from.find_first_not_of("0123456789") == std::string_view::npos;
    if (number) text.remove_prefix(std::min(from.find_first_not_of('0'), from.size()));
  }
  friend bool operator<(const SortText& a, const SortText& b) {
    if (a.number != b.number) return a.number;
    if (a.number && a.text.size() != b.text.size()) return a.text.size() < b.text.size();
    return a.text < b.text;
  }
};

bool ComesBefore(const TableRow& a, const TableRow& b, const std::vector<SortKey>& keys, int current_column,
                 bool ascending) {
  for (const SortKey& key : keys) {
    const int column = key.column > 0 ? key.column : current_column;
    const auto cell = [&](const TableRow& row) -> const std::string& {
      const std::string& text = row.cells[static_cast<std::size_t>(column) - 1];
      return text.empty() ? key.blank_as : text;
    };
    const std::string& text_a = cell(a);
    const std::string& text_b = cell(b);
    if (text_a.empty() != text_b.empty()) return text_b.empty();
    const SortText sort_a(text_a);
    const SortText sort_b(text_b);
    if (sort_a < sort_b) return ascending;
    if (sort_b < sort_a) return !ascending;
  }
  return false;
}

}  // namespace

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

bool TableEditor::CanAddRow() const {
  return options_.rows == RowCommands::kGrow && rows() < options_.most;
}

bool TableEditor::Append() {
  if (!CanAddRow()) return false;
  std::vector<TableRow> rows = rows_;
  rows.push_back({.cells = std::vector<std::string>(options_.columns.size())});
  ReplaceRows(std::move(rows));
  return true;
}

void TableEditor::AddRow() {
  LeaveCell();
  if (!Append()) return;
  GoTo(rows(), 1);
}

void TableEditor::InsertRow() {
  if (options_.rows == RowCommands::kNone || !HasCurrent()) return;
  std::vector<TableRow> rows = rows_;
  if (!CanAddRow()) {
    if (!IsBlank(this->rows())) return;
    rows.pop_back();
  }
  rows.insert(rows.begin() + std::min(row_ - 1, static_cast<int>(rows.size())),
              {.cells = std::vector<std::string>(options_.columns.size())});
  ReplaceRows(std::move(rows));
}

void TableEditor::DeleteRow() {
  if (options_.rows == RowCommands::kNone || !HasCurrent()) return;
  const Selection selected = selection();
  bool filtered = false;
  std::vector<TableRow> rows;
  for (int row = 1; row <= this->rows(); ++row) {
    filtered = filtered || !InSight(row);
    if (row < selected.top || row > selected.bottom || !InSight(row)) rows.push_back(this->row(row));
  }
  if (options_.rows == RowCommands::kFixed) {
    const auto most = static_cast<std::size_t>(options_.most);
    const std::size_t filled = most == 0 ? rows_.size() : std::min(rows_.size(), most);
    while (rows.size() < filled)
      rows.push_back({.cells = std::vector<std::string>(options_.columns.size()), .in_sight = !filtered});
  }
  ReplaceRows(std::move(rows));
  const int top = std::clamp(selected.top, 1, std::max(this->rows(), 1));
  const int below = NextInSight(top, 1);
  const int above = NextInSight(top, -1);
  GoTo(below > 0 ? below : above > 0 ? above : top, selected.left);
}

void TableEditor::Sort(bool ascending) {
  if (options_.sort_by.empty()) return;
  std::vector<TableRow> rows = rows_;
  std::stable_sort(rows.begin(), rows.end(), [&](const TableRow& a, const TableRow& b) {
    return ComesBefore(a, b, options_.sort_by, column_, ascending);
  });
  ReplaceRows(std::move(rows));
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

}  // namespace tarvok::editing
