#include "editors/used_by.h"

#include <string>

#include "project/references.h"
#include "sections/row_fields.h"
#include "sections/rows.h"

namespace tarvok::editors {

namespace {

Found InWords(const IniText& project, const Reference& reference) {
  const Table& from = *reference.table;
  const RowFields fields(from, RowValue(project, from, reference.row));
  const Field& field = *fields.StatementOf(reference.field);
  std::string name(field.name);
  if (from.repeats) name.append(" ").append(std::to_string(reference.field));
  Place place{std::string(from.section), KeyOf(from, reference.row), from.single() ? 0 : reference.row,
              reference.field};
  return {std::move(place), RowLabel(project, from, reference.row), std::move(name),
          Shown(project, field, fields[reference.field])};
}

}  // namespace

std::vector<Found> UsedBy(const IniText& project, const Table& table, int number) {
  std::vector<Found> uses;
  const int row = number - table.rows.base;
  if (row < 1) return uses;
  for (const Reference& reference : ReferencesTo(project, table, row))
    uses.push_back(InWords(project, reference));
  return uses;
}

std::vector<ClearedReference> InWords(const IniText& project, const Table& table,
                                      const std::vector<Reference>& references) {
  std::vector<ClearedReference> texts;
  for (const Reference& reference : references) {
    const Found found = InWords(project, reference);
    texts.push_back(
        {RowLabel(project, table, reference.target + table.rows.base), found.row + ", " + found.field});
  }
  return texts;
}

std::vector<Found> UsedBy(const IniText& project, FieldTableEditor& form, int grid_row) {
  const TableEditor& grid = *form.table();
  if (grid_row < 1 || grid_row > grid.rows() || grid.row(grid_row).origin < 1) return {};
  return UsedBy(project, form.statement(), grid.row(grid_row).origin);
}

}  // namespace tarvok::editors
