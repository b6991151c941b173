#include "editors/field_table_editor.h"

#include <algorithm>
#include <utility>

#include "editors/used_by.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::editors {
namespace {

std::vector<Column> ColumnsOf(std::vector<FieldColumn>& columns) {
  std::vector<Column> made;
  made.reserve(columns.size());
  for (FieldColumn& column : columns) made.push_back(std::move(column.column));
  return made;
}

TableEditor::Options WithColumns(TableEditor::Options options, std::vector<FieldColumn>& columns) {
  options.columns = ColumnsOf(columns);
  return options;
}

}  // namespace

int RowsUpToNow(const IniText& project, const Table& table) {
  const std::int64_t now = Val(project.Get(table.section, kNowKey));
  auto last = static_cast<int>(std::clamp<std::int64_t>(now, 0, table.rows.last));
  for (int number = last + 1; number <= table.rows.last; ++number) {
    if (!RowValue(project, table, number).empty()) last = number;
  }
  return last;
}

FieldTableEditor::FieldTableEditor(EditorContext context, FormName name, const Table& table,
                                   std::vector<FieldColumn> columns, TableEditor::Options options)
    : TableForm(std::move(context), name, WithColumns(std::move(options), columns)),
      table_(table),
      columns_(std::move(columns)) {}

bool FieldTableEditor::ShowPlace(std::string_view section, int row, int field) {
  if (!SameName(section, table_.section)) return false;
  int column = 1;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (field > 0 && columns_[i].field == field) column = static_cast<int>(i) + 1;
  }
  return grid().GoTo(row, column);
}

void FieldTableEditor::Load(const IniText& project) {
  Prepare(project);
  grid().Clear();
  loaded_rows_ = RowsToShow(project);
  for (int number = 1; number <= loaded_rows_; ++number) {
    grid().Load(ShownRow(number, RowValue(project, table_, number)));
  }
}

TableRow FieldTableEditor::ShownRow(int number, std::string_view value) const {
  const FieldList fields(value);
  TableRow row{.origin = number, .hidden = {std::string(value)}};
  for (const FieldColumn& column : columns_) {
    const std::string_view stored = table_.whole_value() ? value
                                    : column.field > 0   ? fields[column.field]
                                                         : std::string_view();
    row.cells.push_back(column.shown ? column.shown(stored) : CellText(stored));
  }
  ShowRow(value, row);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const std::string_view stored = fields[columns_[i].field];
    if (!columns_[i].names || !row.cells[i].empty() || Val(stored) < 1) continue;
    const NamedRows rows = columns_[i].names(row.cells);
    if (rows.names == nullptr || !rows.kept) continue;
    row.unseen.resize(columns_.size());
    row.unseen[i] = stored;
  }
  return row;
}

std::string_view FieldTableEditor::StoredBefore(int row) const {
  const auto& hidden = grid().row(row).hidden;
  return hidden.empty() ? std::string_view() : std::string_view(hidden[0]);
}

std::string FieldTableEditor::RowText(int row) const {
  return TextOf(grid().row(row));
}

std::string FieldTableEditor::TextOf(const TableRow& row) const {
  std::string text;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].field == 0) continue;
    if (!text.empty()) text += '|';
    text += FieldOf(row, i);
  }
  return text;
}

std::string FieldTableEditor::FieldOf(const TableRow& row, std::size_t column) const {
  const FieldColumn& stated = columns_[column];
  const std::string& cell = row.cells[column];
  const NamedRows rows = stated.names ? stated.names(row.cells) : NamedRows();
  if (rows.names == nullptr) return stated.stored ? stated.stored(cell) : FieldText(cell);
  if (!row.Unseen(column).empty()) return row.Unseen(column);
  std::string named = stated.stored ? stated.stored(cell) : std::string(kUnset);
  if (named != kUnset) return named;
  const std::string_view before = row.hidden.empty() ? std::string_view() : std::string_view(row.hidden[0]);
  return rows.names->Stored(cell, rows.width, GetField(before, stated.field));
}

bool FieldTableEditor::IsRemoved(std::string_view value) const {
  const auto& empty = table_.empty_rows;
  return std::find(empty.begin(), empty.end(), value) != empty.end();
}

void FieldTableEditor::RepairMoved(IniEdit& project) {
  WillClear(InWords(project.base(), table_, RepairReferences(project, project.base(), table_, Moves())));
}

void FieldTableEditor::Write(IniEdit& project) {
  RepairMoved(project);
  WriteRows(project);
}

void FieldTableEditor::Saved() {
  TableForm::Saved();
  loaded_rows_ = grid().rows();
}

void FieldTableEditor::WriteRows(IniEdit& project) const {
  const int last = std::max(loaded_rows_, grid().rows());
  for (int number = 1; number <= last; ++number) {
    const std::string value = number <= grid().rows() ? RowText(number) : std::string();
    if (number > grid().rows() || IsRemoved(value)) {
      project.DeleteKey(table_.section, KeyOf(table_, number));
    } else {
      project.Set(table_.section, KeyOf(table_, number), value);
    }
  }
}

RowMoves FieldTableEditor::Moves() const {
  return Moves([this](int row) { return KeepsReferences(row); });
}

RowMoves FieldTableEditor::Moves(const std::function<bool(int row)>& keeps) const {
  const TableEditor& rows = grid();
  RowMoves moves;
  for (int number = 1; number <= loaded_rows_; ++number) moves[number] = 0;
  for (int row = 1; row <= rows.rows(); ++row) {
    const int origin = rows.row(row).origin;
    if (origin > 0) moves[origin] = keeps(row) ? row : 0;
  }
  std::erase_if(moves, [](const auto& move) { return move.first == move.second; });
  return moves;
}

}  // namespace tarvok::editors
