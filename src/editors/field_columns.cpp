#include "editors/field_columns.h"

#include <algorithm>
#include <utility>

#include "sections/ports/assign.h"
#include "sections/ports/port_def.h"
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

std::string CellText(std::string_view stored) {
  return stored == kUnset ? std::string() : std::string(stored);
}

std::string FieldText(std::string_view cell) {
  return cell.empty() ? std::string(kUnset) : std::string(cell);
}

FieldColumn ChoiceColumn(int field, std::string title, const Field& statement, std::string overlay) {
  FieldColumn made{
      .field = field,
      .column = {.title = std::move(title), .entry = Entry::kList, .overlay = std::move(overlay)}};
  const std::span<const Choice> choices = statement.choices;
  for (const Choice& choice : choices) made.column.list.emplace_back(choice.shown);
  made.shown = [choices](std::string_view stored) {
    for (const Choice& choice : choices) {
      if (choice.stored == stored) return std::string(choice.shown);
    }
    return std::string();
  };
  made.stored = [choices](std::string_view cell) {
    for (const Choice& choice : choices) {
      if (choice.shown == cell) return std::string(choice.stored);
    }
    return std::string(kUnset);
  };
  return made;
}

FieldColumn TypedColumn(int field, std::string title, EntryRule rule) {
  return {.field = field, .column = {.title = std::move(title), .rule = rule, .overlay = "txtMask"}};
}

FieldColumn NumberColumn(int most) {
  FieldColumn column = TypedColumn(1, "Number", DigitsRule(most));
  column.shown = column.stored = [](std::string_view text) { return std::string(text); };
  return column;
}

FieldColumn LimitedColumn(int field, std::string title, const Field& statement, EntryRule rule,
                          std::string overlay) {
  FieldColumn made = ChoiceColumn(field, std::move(title), statement, std::move(overlay));
  made.column.entry = made.column.list.empty() ? Entry::kText : Entry::kEditList;
  made.column.rule = rule;
  const auto name_of = made.shown;
  const auto named = made.stored;
  made.shown = [name_of, unset = statement.unset_as](std::string_view stored) {
    if (stored == unset) return std::string();
    std::string name = name_of(stored);
    return name.empty() ? CellText(stored) : std::move(name);
  };
  std::string blank(statement.unset_as.empty() ? kUnset : statement.unset_as);
  made.stored = [named, blank = std::move(blank), highest = statement.high](std::string_view cell) {
    if (cell.empty()) return blank;
    std::string stored = named(cell);
    if (stored != kUnset) return stored;
    return Val(cell) > highest ? std::to_string(highest) : std::string(cell);
  };
  return made;
}

void RowNames::Add(int number, std::string name, bool offered) {
  names_.push_back({number, std::move(name), offered});
}

std::string RowNames::NameOf(std::string_view stored) const {
  const std::int64_t number = Val(stored);
  const auto found =
      std::find_if(names_.begin(), names_.end(), [&](const Row& row) { return row.number == number; });
  return found == names_.end() ? std::string() : found->name;
}

std::string RowNames::Stored(std::string_view name, int width, std::string_view before) const {
  if (name.empty()) return std::string(kUnset);
  if (name == NameOf(before)) return Padded(Val(before), width);
  const auto number_of = [&](bool offered) {
    const auto found = std::find_if(names_.begin(), names_.end(), [&](const Row& row) {
      return row.name == name && row.offered == offered;
    });
    return found == names_.end() ? std::string(kUnset) : Padded(found->number, width);
  };
  const std::string number = number_of(true);
  return number == kUnset ? number_of(false) : number;
}

std::vector<std::string> RowNames::Names() const {
  std::vector<std::string> names;
  for (const Row& row : names_) {
    if (row.offered && !row.name.empty()) names.push_back(row.name);
  }
  return names;
}

FieldColumn ReferenceColumn(int field, std::string title, const Field& statement, const RowNames& names,
                            std::string overlay) {
  FieldColumn made = ChoiceColumn(field, std::move(title), statement, std::move(overlay));
  made.shown = [&names, named = made.shown](std::string_view stored) {
    std::string name = named(stored);
    return name.empty() ? names.NameOf(stored) : name;
  };
  made.names = [&names, width = statement.width](const auto& /*cells*/) { return NamedRows{&names, width}; };
  return made;
}

RowNames LabelledRows(const Table& table) {
  RowNames names;
  for (int number = table.rows.first; number <= table.rows.last; ++number)
    names.Add(number, std::string(table.label).append(" ").append(std::to_string(number)));
  return names;
}

RowNames AssignNumbers(const IniText& project) {
  RowNames names;
  for (int row = 1; row <= kAssignRows; ++row) {
    const std::string_view value = RowValue(project, assign::kTable, row);
    if (!value.empty()) names.Add(row, CellText(GetField(value, assign::kNumber)));
  }
  return names;
}

RowNames PortNumbers(const IniText& project) {
  const RowNames numbers = AssignNumbers(project);
  RowNames names;
  for (int row = 1; row <= kPortRows; ++row) {
    const std::string_view port = RowValue(project, port_def::kTable, row);
    if (!IsUnused(port_def::kTable, port)) names.Add(row, numbers.NameOf(GetField(port, port_def::kNumber)));
  }
  return names;
}

RowNames PortNames(const IniText& project, std::string_view type) {
  RowNames names;
  for (int row = 1; row <= kPortRows; ++row) {
    const std::string_view port = RowValue(project, port_def::kTable, row);
    if (IsUnused(port_def::kTable, port) || (!type.empty() && GetField(port, port_def::kType) != type))
      continue;
    const std::string_view card = GetField(port, port_def::kCard);
    const std::string_view channel = GetField(port, port_def::kChannel);
    const bool whole = !card.empty() && card != kUnset && !channel.empty() && channel != kUnset;
    names.Add(row, whole ? std::string(card).append("/").append(channel) : std::string());
  }
  return names;
}

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

void FieldTableEditor::RepairMoved(IniEdit& project) const {
  const RowMoves moves = Moves();
  RepairReferences(project, project.base(), table_, moves);
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
