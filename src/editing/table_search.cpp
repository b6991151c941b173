// Find and replace in a table.

#include <algorithm>

#include "editing/table_editor.h"
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

bool TableEditor::FindNext(std::string_view text) {
  if (text.empty() || rows() == 0) return false;
  const int cells = rows() * columns();
  const int here = (row_ - 1) * columns() + column_ - 1;
  for (int step = 1; step <= cells; ++step) {
    const int at = (here + step) % cells;
    const int row = at / columns() + 1;
    const int column = at % columns() + 1;
    if (InSight(row) && PlaceOf(text, Cell(row, column)) != std::string::npos) return GoTo(row, column);
  }
  return false;
}

int TableEditor::ReplaceAll(std::string_view text, std::string_view by, std::vector<Refusal>& refused) {
  if (text.empty()) return 0;
  int count = 0;
  Begin();
  for (const int row : RowsInSight(1, rows())) {
    for (int column = 1; column <= columns(); ++column) {
      if (this->column(column).entry == Entry::kReadOnly ||
          PlaceOf(text, Cell(row, column)) == std::string::npos)
        continue;
      const std::string made = Replaced(Cell(row, column), text, by);
      std::string why;
      const std::optional<std::string> fitting = Fitting(row, column, made, why);
      if (!fitting) {
        refused.push_back({row, column, made, why});
      } else if (*fitting != Cell(row, column)) {
        Change(row, column, *fitting);
        ++count;
      }
    }
  }
  End();
  if (count > 0) Changed();
  return count;
}

}  // namespace tarvok::editing
