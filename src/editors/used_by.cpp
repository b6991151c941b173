#include "editors/used_by.h"

#include <string>

#include "project/references.h"
#include "sections/row_fields.h"
#include "sections/rows.h"

namespace tarvok::editors {

std::vector<Found> UsedBy(const IniText& project, const Table& table, int number) {
  std::vector<Found> uses;
  const int row = number - table.rows.base;
  if (row < 1) return uses;
  for (const Reference& reference : ReferencesTo(project, table, row)) {
    const Table& from = *reference.table;
    const RowFields fields(from, RowValue(project, from, reference.row));
    const Field* field = fields.StatementOf(reference.field);
    if (field == nullptr) continue;
    std::string name(field->name);
    if (from.repeats) name.append(" ").append(std::to_string(reference.field));
    Place place{std::string(from.section), KeyOf(from, reference.row), from.single() ? 0 : reference.row,
                reference.field};
    uses.push_back({std::move(place), RowLabel(project, from, reference.row), std::move(name),
                    Shown(project, *field, fields[reference.field])});
  }
  return uses;
}

std::vector<Found> UsedBy(const IniText& project, FieldTableEditor& form, int grid_row) {
  const TableEditor& grid = *form.table();
  if (grid_row < 1 || grid_row > grid.rows() || grid.row(grid_row).origin < 1) return {};
  return UsedBy(project, form.statement(), grid.row(grid_row).origin);
}

}  // namespace tarvok::editors
