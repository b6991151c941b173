// The selection as text: copy, paste, fill down.

#include <algorithm>

#include "editing/table_operations.h"

namespace tarvok::editing {
namespace {

std::vector<std::string> Split(std::string_view text, char by) {
  std::vector<std::string> pieces;
  for (;;) {
    const std::size_t end = text.find(by);
    pieces.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

/** True for what ends a cell of copied text. An imported value may contain one. */
bool IsBreak(char c) {
  return c == '\t' || c == '\n' || c == '\r';
}

/** Splits text into rows at line breaks and into cells at tabs. A final line break adds no row. */
std::vector<std::vector<std::string>> CellsOf(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    if (c != '\r' && c != '\0') plain += c;
  }
  if (!plain.empty() && plain.back() == '\n') plain.pop_back();
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : Split(plain, '\n')) rows.push_back(Split(line, '\t'));
  return rows;
}

std::vector<Refusal> PutBlock(TableEditor& table, const std::vector<std::vector<std::string>>& block,
                              Selection where, bool fill) {
  std::vector<Refusal> refused;
  table.Begin();
  std::size_t next = 0;
  for (const int row : table.RowsInSight(where.top, fill ? where.bottom : table.rows())) {
    if (next == block.size()) break;
    const auto& line = block[fill ? 0 : next++];
    const bool one = line.size() == 1 && fill;
    for (int column = where.left; column <= std::min(where.right, table.columns()); ++column) {
      const auto piece = static_cast<std::size_t>(one ? 0 : column - where.left);
      const Column& stated = table.column(column);
      if (piece >= line.size() || stated.entry == Entry::kReadOnly) continue;
      std::string text = line[piece];
      if (stated.rule.in_list && text != table.Cell(row, column)) std::erase(text, '|');
      std::string why;
      if (const std::optional<std::string> fitting = table.Fitting(row, column, text, why)) {
        table.SetCell(row, column, *fitting);
      } else {
        refused.push_back({row, column, text, why});
      }
    }
  }
  table.End();
  table.Changed();
  return refused;
}

}  // namespace

std::string CopyCells(const TableEditor& table) {
  std::string text;
  bool first = true;
  const Selection selected = table.selection();
  for (const int row : table.RowsInSight(selected.top, selected.bottom)) {
    if (!first) text += "\r\n";
    first = false;
    for (int column = selected.left; column <= selected.right; ++column) {
      if (column > selected.left) text += '\t';
      for (const char c : table.Cell(row, column)) text += IsBreak(c) ? ' ' : c;
    }
  }
  return text;
}

void ClearCells(TableEditor& table) {
  if (table.rows() > 0 && !table.HasCurrent()) return;
  table.Begin();
  const Selection selected = table.selection();
  for (const int row : table.RowsInSight(selected.top, selected.bottom)) {
    for (int column = selected.left; column <= selected.right; ++column) {
      if (table.column(column).entry != Entry::kReadOnly) table.EraseCell(row, column);
    }
  }
  table.End();
  table.Changed();
}

std::vector<Refusal> PasteCells(TableEditor& table, std::string_view text) {
  if (text.empty() || !table.HasCurrent()) return {};
  const auto block = CellsOf(text);
  Selection where = table.selection();
  if (block.size() == 1 && block[0].size() == 1) return PutBlock(table, block, where, true);
  std::size_t widest = 0;
  for (const auto& line : block) widest = std::max(widest, line.size());
  where.right = where.left + static_cast<int>(widest) - 1;
  return PutBlock(table, block, where, false);
}

std::vector<Refusal> FillDown(TableEditor& table) {
  Selection where = table.selection();
  const std::vector<int> rows = table.RowsInSight(where.top, where.bottom);
  if (rows.size() < 2) return {};
  std::vector<std::string> line;
  for (int column = where.left; column <= where.right; ++column)
    line.push_back(table.Cell(rows.front(), column));
  where.top = rows.front() + 1;
  return PutBlock(table, {line}, where, true);
}

}  // namespace tarvok::editing
