// Adding, inserting, deleting and sorting rows.

#include <algorithm>
#include <utility>

#include "editing/table_operations.h"

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

TableRow BlankRow(const TableEditor& table) {
  return {.cells = std::vector<std::string>(static_cast<std::size_t>(table.columns()))};
}

}  // namespace

bool AppendRow(TableEditor& table) {
  if (!table.CanAddRow()) return false;
  std::vector<TableRow> rows = table.all_rows();
  rows.push_back(BlankRow(table));
  table.ReplaceRows(std::move(rows));
  return true;
}

void AddRow(TableEditor& table) {
  table.LeaveCell();
  if (AppendRow(table)) table.GoTo(table.rows(), 1);
}

void InsertRow(TableEditor& table) {
  if (table.options().rows == RowCommands::kNone || !table.HasCurrent()) return;
  std::vector<TableRow> rows = table.all_rows();
  if (!table.CanAddRow()) {
    if (!table.IsBlank(table.rows())) return;
    rows.pop_back();
  }
  rows.insert(rows.begin() + std::min(table.current_row() - 1, static_cast<int>(rows.size())),
              BlankRow(table));
  table.ReplaceRows(std::move(rows));
}

void DeleteRows(TableEditor& table) {
  const TableEditor::Options& options = table.options();
  if (options.rows == RowCommands::kNone || !table.HasCurrent()) return;
  const Selection selected = table.selection();
  bool filtered = false;
  std::vector<TableRow> rows;
  for (int row = 1; row <= table.rows(); ++row) {
    filtered = filtered || !table.InSight(row);
    if (row < selected.top || row > selected.bottom || !table.InSight(row)) rows.push_back(table.row(row));
  }
  if (options.rows == RowCommands::kFixed) {
    const int filled = options.most == 0 ? table.rows() : std::min(table.rows(), options.most);
    while (static_cast<int>(rows.size()) < filled) {
      rows.push_back(BlankRow(table));
      rows.back().in_sight = !filtered;
    }
  }
  table.ReplaceRows(std::move(rows));
  const int top = std::clamp(selected.top, 1, std::max(table.rows(), 1));
  const int below = table.NextInSight(top, 1);
  const int above = table.NextInSight(top, -1);
  table.GoTo(below > 0 ? below : above > 0 ? above : top, selected.left);
}

void SortRows(TableEditor& table, bool ascending) {
  const std::vector<SortKey>& keys = table.options().sort_by;
  if (keys.empty()) return;
  std::vector<TableRow> rows = table.all_rows();
  std::ranges::stable_sort(rows, [&](const TableRow& a, const TableRow& b) {
    return ComesBefore(a, b, keys, table.current_column(), ascending);
  });
  table.ReplaceRows(std::move(rows));
}

}  // namespace tarvok::editing
