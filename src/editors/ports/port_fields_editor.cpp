#include "editors/ports/port_fields_editor.h"

#include <algorithm>

#include "sections/ports/port_def.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace {

using namespace port_def;

constexpr int kNumberColumn = 3;

const Field& StatementOf(int field) {
  return kTable.fields[static_cast<std::size_t>(field) - 1];
}

std::string TitleOf(int field) {
  return std::string(StatementOf(field).name);
}

FieldColumn ReadOnlyColumn(int field) {
  return {.field = field, .column = {.title = TitleOf(field), .entry = Entry::kReadOnly}};
}

std::vector<FieldColumn> WithPort(std::vector<FieldColumn> columns) {
  std::vector<FieldColumn> all = {ReadOnlyColumn(kCard), ReadOnlyColumn(kChannel), ReadOnlyColumn(kNumber)};
  for (FieldColumn& column : columns) all.push_back(std::move(column));
  return all;
}

}  // namespace

PortFieldsEditor::PortFieldsEditor(const EditorContext& context, const FormName& name,
                                   std::vector<FieldColumn> columns)
    : FieldTableEditor(context, name, kTable, WithPort(std::move(columns)), {.sort_by = {{1}, {2}}}) {
  LayOut();
}

FieldColumn PortFieldsEditor::Typed(int field, EntryRule rule) {
  return TypedColumn(field, TitleOf(field), rule);
}

FieldColumn PortFieldsEditor::Listed(int field, std::string overlay) {
  return ChoiceColumn(field, TitleOf(field), StatementOf(field), std::move(overlay));
}

bool PortFieldsEditor::ShowPlace(std::string_view section, int row, int field) {
  for (int shown = 1; shown <= grid().rows(); ++shown) {
    if (grid().row(shown).origin == row) return FieldTableEditor::ShowPlace(section, shown, field);
  }
  return false;
}

void PortFieldsEditor::Load(const IniText& project) {
  const RowNames numbers = AssignNumbers(project);
  const auto last = static_cast<int>(
      std::clamp<std::int64_t>(Val(project.Get(kTable.section, kNowKey)), 0, kTable.rows.last));
  grid().Clear();
  for (int number = 1; number <= last; ++number) {
    const std::string_view value = RowValue(project, kTable, number);
    if (value.empty()) continue;
    const FieldList fields(value);
    TableRow row{.origin = number};
    for (const FieldColumn& column : field_columns()) {
      const std::string_view stored = fields[column.field];
      row.cells.push_back(column.shown ? column.shown(stored) : CellText(stored));
    }
    row.cells[kNumberColumn - 1] = numbers.NameOf(fields[kNumber]);
    row.hidden = {std::string(value)};
    grid().Load(std::move(row));
  }
}

void PortFieldsEditor::Write(IniEdit& project) {
  for (int row = 1; row <= grid().rows(); ++row) {
    const TableRow& port = grid().row(row);
    std::string texts[kExpand];
    const FieldList before(port.hidden[0]);
    for (int field = kCard; field <= kExpand; ++field) texts[field - 1] = FieldText(before[field]);
    for (std::size_t i = kNumberColumn; i < field_columns().size(); ++i) {
      const FieldColumn& column = field_columns()[i];
      texts[column.field - 1] = column.stored ? column.stored(port.cells[i]) : FieldText(port.cells[i]);
    }
    std::string value;
    for (const std::string& text : texts) value.append(value.empty() ? "" : "|").append(text);
    project.Set(kTable.section, KeyOf(kTable, port.origin), value);
  }
}

}  // namespace tarvok::editors
