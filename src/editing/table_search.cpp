// Find and replace in a table.

#include <algorithm>

#include "editing/table_operations.h"
#include "store/ini_text.h"

namespace tarvok::editing {
namespace {

/** The position of a text in another one, ignoring case; npos if it is not found. */
std::size_t PlaceOf(std::string_view text, std::string_view in, std::size_t from = 0) {
  return FoldName(in).find(FoldName(text), from);
}

std::string Replaced(std::string_view in, std::string_view text, std::string_view by) {
  std::string made;
  std::size_t from = 0;
  for (std::size_t at = PlaceOf(text, in); at != std::string_view::npos; at = PlaceOf(text, in, from)) {
    made.append(in.substr(from, at - from)).append(by);
    from = at + text.size();
  }
  return made.append(in.substr(from));
}

}  // namespace

bool FindNext(TableEditor& table, std::string_view text) {
  if (text.empty() || table.rows() == 0) return false;
  const int columns = table.columns();
  const int cells = table.rows() * columns;
  const int here = (table.current_row() - 1) * columns + table.current_column() - 1;
  for (int step = 1; step <= cells; ++step) {
    const int at = (here + step) % cells;
    const int row = at / columns + 1;
    const int column = at % columns + 1;
    if (table.InSight(row) && PlaceOf(text, table.Cell(row, column)) != std::string::npos)
      return table.GoTo(row, column);
  }
  return false;
}

int ReplaceAll(TableEditor& table, std::string_view text, std::string_view by,
               std::vector<Refusal>& refused) {
  if (text.empty()) return 0;
  int count = 0;
  table.Begin();
  for (const int row : table.RowsInSight(1, table.rows())) {
    for (int column = 1; column <= table.columns(); ++column) {
      const std::string& cell = table.Cell(row, column);
      if (table.column(column).entry == Entry::kReadOnly || PlaceOf(text, cell) == std::string::npos)
        continue;
      const std::string made = Replaced(cell, text, by);
      std::string why;
      const std::optional<std::string> fitting = table.Fitting(row, column, made, why);
      if (!fitting) {
        refused.push_back({row, column, made, why});
      } else if (*fitting != cell) {
        table.SetCell(row, column, *fitting);
        ++count;
      }
    }
  }
  table.End();
  if (count > 0) table.Changed();
  return count;
}

}  // namespace tarvok::editing
