#include "project/references.h"

#include <algorithm>
#include <string_view>

#include "project/field_check.h"
#include "sections/registry.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::project {
namespace {

/** The row that a plain reference names; 0 if it is not set or is a named value. */
int TargetOf(const Field& field, std::string_view text) {
  const auto has_name = [&](const Choice& choice) { return choice.stored == text; };
  if (std::any_of(field.choices.begin(), field.choices.end(), has_name)) return 0;
  if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos) return 0;
  const std::int64_t number = Val(text);
  return number >= 1 && number <= field.points_at->rows.last - field.points_at->rows.base
             ? static_cast<int>(number)
             : 0;
}

bool PointsAt(const Field* field, const Table& target) {
  return field != nullptr && field->points_at != nullptr && field->points_at->section == target.section;
}

/** The row of `target` that a field of a row refers to; 0 if none. */
int PlainTarget(const RowFields& row, int n, const Table& target) {
  const Field* field = row.StatementOf(n);
  return PointsAt(field, target) && row.IsSet(n) ? TargetOf(*field, row[n]) : 0;
}

/** The same for a coded value. */
int CodedTarget(const RowFields& row, int n, const Table& target) {
  const Field* field = row.StatementOf(n);
  if (field == nullptr || field->codes.empty() || !row.IsSet(n)) return 0;
  const CodedParts parts = TakeApart(*field, row[n]);
  if (parts.entry == nullptr || !PointsAt(parts.entry->argument, target)) return 0;
  return TargetOf(*parts.entry->argument, parts.argument);
}

/** True if a field of the table can refer to rows of the target's section. */
bool MayPointAt(const Table& table, const Table& target) {
  return std::any_of(table.fields.begin(), table.fields.end(), [&](const Field& field) {
    return PointsAt(&field, target) ||
           std::any_of(field.meanings.begin(), field.meanings.end(),
                       [&](const Meaning& meaning) { return PointsAt(meaning.field, target); }) ||
           std::any_of(field.codes.begin(), field.codes.end(),
                       [&](const CodedValue& code) { return PointsAt(code.argument, target); });
  });
}

template <typename Take>
void ForEachRow(const IniText& project, const Table& table, Take take) {
  const int last = table.single() ? table.rows.first : std::max(table.rows.last, table.rows.kept);
  for (int number = table.rows.first; number <= last; ++number) {
    const std::string_view value = RowValue(project, table, number);
    if (!value.empty()) take(number, value);
  }
}

std::string Moved(const RowFields& row, int n, int to) {
  return to > 0 ? Padded(to, row.StatementOf(n)->width) : std::string(kUnset);
}

/** The list with its members renumbered, and without those whose rows are gone. */
std::string MovedMembers(const RowFields& row, const Table& moved, const RowMoves& moves) {
  std::string list;
  for (int n = 1; n <= row.count(); ++n) {
    const auto found = moves.find(PlainTarget(row, n, moved));
    const bool moves_on = found != moves.end();
    if (moves_on && found->second == 0) continue;
    if (!list.empty()) list += '|';
    list += moves_on ? Moved(row, n, found->second) : std::string(row[n]);
  }
  return list;
}

std::string MovedFields(const RowFields& row, std::string_view value, const Table& moved,
                        const RowMoves& moves) {
  std::string list(value);
  for (int n = 1; n <= row.count(); ++n) {
    const auto found = moves.find(PlainTarget(row, n, moved));
    if (found != moves.end()) list = WithField(list, n, Moved(row, n, found->second));
  }
  return list;
}

}  // namespace

std::vector<Reference> ReferencesTo(const IniText& project, const Table& target, int row) {
  std::vector<Reference> references;
  for (const Table* table : Tables()) {
    if (!MayPointAt(*table, target)) continue;
    ForEachRow(project, *table, [&](int number, std::string_view value) {
      const RowFields fields(*table, value);
      for (int n = 1; n <= fields.count(); ++n) {
        const int plain = PlainTarget(fields, n, target);
        const int found = plain > 0 ? plain : CodedTarget(fields, n, target);
        if (found > 0 && (row == 0 || found == row)) references.push_back({table, number, n, found});
      }
    });
  }
  return references;
}

std::vector<Reference> RepairReferences(IniEdit& project, const IniText& before, const Table& moved,
                                        const RowMoves& moves) {
  std::vector<Reference> cleared;
  for (const Table* table : Tables()) {
    const std::vector<Reference> of_table = RepairReferencesOf(*table, project, before, moved, moves);
    cleared.insert(cleared.end(), of_table.begin(), of_table.end());
  }
  return cleared;
}

std::vector<Reference> RepairReferencesOf(const Table& table, IniEdit& project, const IniText& before,
                                          const Table& moved, const RowMoves& moves) {
  std::vector<Reference> cleared;
  if (moves.empty() || !MayPointAt(table, moved)) return cleared;
  bool any = false;
  ForEachRow(before, table, [&](int number, std::string_view value) {
    const RowFields row(table, value);
    bool changed = false;
    for (int n = 1; n <= row.count(); ++n) {
      const auto found = moves.find(PlainTarget(row, n, moved));
      if (found == moves.end()) continue;
      changed = true;
      if (found->second == 0) cleared.push_back({&table, number, n, found->first});
    }
    if (!changed) return;
    any = true;
    project.Set(table.section, KeyOf(table, number),
                table.repeats ? MovedMembers(row, moved, moves) : MovedFields(row, value, moved, moves));
  });
  if (any && table.now == NowCounts::kMembers) RecountMembers(project, table);
  return cleared;
}

void RecountMembers(IniEdit& project, const Table& table) {
  int members = 0;
  for (int number = table.rows.first; number <= table.rows.last; ++number) {
    ForEachMember(project.Get(table.section, KeyOf(table, number)), [&](std::string_view) { ++members; });
  }
  project.Set(table.section, kNowKey, std::to_string(members));
}

std::string WithField(std::string_view list, int n, std::string_view text) {
  std::size_t start = 0;
  for (int field = 0; start <= list.size();) {
    const std::size_t end = std::min(list.find('|', start), list.size());
    if (end > start && ++field == n)
      return std::string(list.substr(0, start)).append(text).append(list.substr(end));
    start = end + 1;
  }
  return std::string(list);
}

std::string PutField(std::string_view list, int n, std::string_view text) {
  int count = FieldList(list).count();
  if (count >= n) return WithField(list, n, text);
  if (!list.empty() && list.back() == '|') list.remove_suffix(1);
  std::string filled(list);
  for (; count < n; ++count) {
    if (!filled.empty()) filled += '|';
    filled += count + 1 == n ? text : kUnset;
  }
  return filled;
}

}  // namespace tarvok::project
