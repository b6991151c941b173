#include "editing/table_csv.h"

#include <algorithm>
#include <utility>

#include "editing/table_operations.h"

namespace tarvok::editing {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Line {
  int number = 0;  // of its first line in the text, from 1; a cell may contain line breaks
  std::vector<std::string> cells;
};

std::string Quoted(const std::string& cell) {
  if (cell.find_first_of(",;\"\r\n") == std::string::npos) return cell;
  std::string quoted = "\"";
  for (const char c : cell) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

/** Splits a text into lines and cells. */
class CsvReader {
 public:
  explicit CsvReader(std::string_view text) : text_(text) {
    if (text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
    const std::string_view head = text_.substr(0, text_.find('\n'));
    if (head.find(',') == std::string_view::npos && head.find(';') != std::string_view::npos)
      separator_ = ';';
  }

  Result<std::vector<Line>> Read() {
    std::vector<Line> lines;
    std::size_t filled = 0;  // lines up to the last one that is not blank
    while (at_ < text_.size()) {
      Line line{.number = number_};
      if (!ReadLine(line))
        return Status(ErrorKind::kBadData, "line " + std::to_string(line.number) + ": a quote is not closed");
      const bool blank = line.cells.size() == 1 && line.cells[0].empty();
      // In a text with one column a blank line is a blank row.
      if (blank && (lines.empty() || lines.front().cells.size() > 1)) continue;
      lines.push_back(std::move(line));
      if (!blank) filled = lines.size();
    }
    lines.resize(filled);
    return lines;
  }

 private:
  bool ReadLine(Line& line) {
    for (;;) {
      std::string cell;
      if (at_ < text_.size() && text_[at_] == '"' && !ReadQuoted(cell)) return false;
      const std::size_t quoted = cell.size();
      while (at_ < text_.size() && text_[at_] != separator_ && text_[at_] != '\n') cell += text_[at_++];
      if (cell.size() > quoted && cell.back() == '\r') cell.pop_back();
      line.cells.push_back(std::move(cell));
      if (at_ >= text_.size()) return true;
      if (text_[at_++] == '\n') {
        ++number_;
        return true;
      }
    }
  }

  bool ReadQuoted(std::string& cell) {
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"') {
        if (at_ + 1 >= text_.size() || text_[at_ + 1] != '"') {
          ++at_;
          return true;
        }
        ++at_;
      }
      if (text_[at_] == '\n') ++number_;
      cell += text_[at_];
    }
    return false;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int number_ = 1;
  char separator_ = ',';
};

/** The table's column for each column of the text; an error for an unknown title. */
Result<std::vector<int>> ColumnsOf(const TableEditor& table, const Line& head) {
  std::vector<int> columns;
  for (const std::string& title : head.cells) {
    int found = 0;
    for (int column = 1; column <= table.columns(); ++column) {
      if (table.column(column).title == title) found = column;
    }
    if (found == 0 || std::find(columns.begin(), columns.end(), found) != columns.end())
      return Status(ErrorKind::kBadData, "line 1: there is no column \"" + title + "\" to fill");
    columns.push_back(found);
  }
  return columns;
}

Status Wrong(const Line& line, const std::string& title, const std::string& what) {
  return {ErrorKind::kBadData, "line " + std::to_string(line.number) + ", column \"" + title + "\": " + what};
}

/** The number of rows with something that an import could replace. */
int RowsFilled(const TableEditor& table) {
  int filled = 0;
  for (int row = 1; row <= table.rows(); ++row) {
    bool holds = false;
    for (int column = 1; column <= table.columns() && !holds; ++column) {
      holds = table.column(column).entry != Entry::kReadOnly && !table.Cell(row, column).empty();
    }
    filled += holds ? 1 : 0;
  }
  return filled;
}

/** Puts a line's cells into a row. */
Status TakeLine(TableEditor& table, int row, const Line& line, const std::vector<int>& columns,
                const CsvImport& import) {
  for (std::size_t n = 0; n < columns.size(); ++n) {
    const int column = columns[n];
    if (table.column(column).entry == Entry::kReadOnly) continue;
    const std::string cell = n < line.cells.size() ? line.cells[n] : std::string();
    std::string why;
    std::optional<std::string> fitting = import.convert ? import.convert(cell, why) : cell;
    if (fitting) fitting = table.Fitting(row, column, *fitting, why);
    if (!fitting)
      return Wrong(line, table.column(column).title,
                   std::string("\"").append(cell).append("\" ").append(why));
    table.SetCell(row, column, *fitting);
  }
  return {};
}

/** Imports all lines after the first, then blanks the remaining rows. */
Status TakeLines(TableEditor& table, const std::vector<Line>& lines, const std::vector<int>& columns,
                 const CsvImport& import) {
  const std::vector<std::string>& titles = lines.front().cells;
  bool room = true;
  while (room && table.rows() + 1 < static_cast<int>(lines.size())) room = AppendRow(table);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const Line& line = lines[i];
    if (line.cells.size() > columns.size()) return Wrong(line, titles.back(), "more cells follow");
    if (static_cast<int>(i) > table.rows())
      return Wrong(line, titles.front(), "there is no room for this row");
    Status taken = TakeLine(table, static_cast<int>(i), line, columns, import);
    if (!taken.ok()) return taken;
  }
  for (int row = static_cast<int>(lines.size()); row <= table.rows(); ++row) {
    for (const int column : columns) {
      if (table.column(column).entry != Entry::kReadOnly) table.SetCell(row, column, {});
    }
  }
  return {};
}

}  // namespace

std::string ExportCsv(const TableEditor& table) {
  std::string text;
  for (int column = 1; column <= table.columns(); ++column) {
    text.append(column > 1 ? "," : "").append(Quoted(table.column(column).title));
  }
  text += "\r\n";
  for (int row = 1; row <= table.rows(); ++row) {
    for (int column = 1; column <= table.columns(); ++column) {
      text.append(column > 1 ? "," : "").append(Quoted(table.Cell(row, column)));
    }
    text += "\r\n";
  }
  return text;
}

Status ImportCsv(TableEditor& table, std::string_view text, const CsvImport& import) {
  Result<std::vector<Line>> read = CsvReader(text).Read();
  if (!read.ok()) return read.status();
  const std::vector<Line>& lines = read.value();
  if (lines.empty()) return {ErrorKind::kBadData, "the file is empty"};
  Result<std::vector<int>> columns = ColumnsOf(table, lines.front());
  if (!columns.ok()) return columns.status();
  const int filled = RowsFilled(table);
  if (filled > 0 && import.may_replace &&
      !import.may_replace(filled, static_cast<int>(lines.size()) - 1, columns.value()))
    return {};
  const std::size_t steps = table.Steps();
  const auto changed = std::exchange(table.changed, nullptr);
  table.Begin();
  Status status = TakeLines(table, lines, columns.value(), import);
  table.End();
  table.changed = changed;
  if (!status.ok()) {
    table.TakeBack(steps);
  } else if (table.Steps() > steps && changed) {
    changed();
  }
  return status;
}

}  // namespace tarvok::editing
