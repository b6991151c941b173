#include "editors/ports/port_fields_editor.h"

#include <algorithm>

#include "editors/field_table_editor.h"
#include "sections/ports/port_def.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors::port_fields_editor {

using namespace port_def;

namespace {

constexpr int kNumberColumn = 3;

std::string TitleOf(int field) {
  return std::string(StatementOf(kTable, field).name);
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
  return ChoiceColumn(field, TitleOf(field), StatementOf(kTable, field), std::move(overlay));
}

bool PortFieldsEditor::ShowPlace(std::string_view section, int row, int field) {
  for (int shown = 1; shown <= grid().rows(); ++shown) {
    if (grid().row(shown).origin == row) return FieldTableEditor::ShowPlace(section, shown, field);
  }
  return false;
}

void PortFieldsEditor::ShowRow(std::string_view value, TableRow& row) const {
  row.cells[kNumberColumn - 1] = numbers_.NameOf(GetField(value, kNumber));
}

void PortFieldsEditor::Load(const IniText& project) {
  numbers_ = AssignNumbers(project);
  const auto last = static_cast<int>(
      std::clamp<std::int64_t>(Val(project.Get(kTable.section, kNowKey)), 0, kTable.rows.last));
  grid().Clear();
  for (int number = 1; number <= last; ++number) {
    const std::string_view value = RowValue(project, kTable, number);
    if (!value.empty()) grid().Load(ShownRow(number, value));
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

}  // namespace tarvok::editors::port_fields_editor
