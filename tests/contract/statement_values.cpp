#include "tests/contract/statement_values.h"

#include <algorithm>

#include "sections/rows.h"
#include "store/field_list.h"
#include "store/ini_edit.h"
#include "tests/floors.h"

namespace tarvok::test {

ValuePair ValuesOf(const Field& field) {
  const auto length = static_cast<std::size_t>(field.high);
  const FieldKind kind = field.kind;
  if (field.decided_by > 0) return {"20", "1"};
  if (kind == FieldKind::kNumber) return {Padded(field.high, field.width), Padded(field.low, field.width)};
  if (kind == FieldKind::kRow) {
    const RowKeys& rows = field.points_at->rows;
    return {Padded(rows.last - rows.base, field.width), Padded(rows.first - rows.base, field.width)};
  }
  if (kind == FieldKind::kHex) return {"FE", "0"};
  // Charge Expand has only one byte, and 655.35 is sent as 0 in some places.
  if (kind == FieldKind::kAmount)
    return {field.name == "Charge Expand" ? "255" : FormatHundredths(field.high - 1), "0"};
  if (kind == FieldKind::kDigits) return {std::string(std::min<std::size_t>(length, 20), '9'), "1"};
  if (kind == FieldKind::kText) return {std::string(std::min<std::size_t>(length, 20), 'x'), "y"};
  if (kind == FieldKind::kTime) return {"2359", "1001"};
  if (kind == FieldKind::kFlag) return {"1", "0"};
  if (kind == FieldKind::kColumns) return {std::string(length, '1'), std::string(length, '0')};
  if (kind == FieldKind::kCoded) return {"EX999999", "TE1"};
  const std::string_view other = field.choices.size() > 1 ? field.choices.back().stored : kUnset;
  return {std::string(field.choices.front().stored), std::string(other)};
}

int FieldsOfRow(const Table& table) {
  if (!table.repeats) return static_cast<int>(table.fields.size());
  return table.members.most > 0 && !table.members.packed ? table.members.most : 3;
}

std::string FullRow(const Table& table, int least_at) {
  std::string row;
  for (int n = 1; n <= FieldsOfRow(table); ++n) {
    const ValuePair values = ValuesOf(table.fields[table.repeats ? 0 : static_cast<std::size_t>(n) - 1]);
    row.append(n > 1 ? "|" : "").append(n == least_at ? values.least : values.most);
  }
  return row;
}

std::string ProjectOf(const Table& table, const std::vector<int>& numbers, const std::string& value) {
  std::string project = "[" + std::string(table.section) + "]\nNow=" + std::to_string(table.rows.last) + "\n";
  for (const int number : numbers) project += KeyOf(table, number) + "=" + value + "\n";
  return project;
}

std::string WithValue(const IniText& project, const std::string& section, const std::string& key, int field,
                      const std::string& value) {
  IniEdit edit(project);
  edit.Set(section, key, field == 0 ? value : SetField(edit.Get(section, key), field, value));
  return edit.Bytes();
}

}  // namespace tarvok::test
