#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "sections/table.h"
#include "sections/uses.h"
#include "store/field_list.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"
#include "store/number_text.h"

namespace tarvok::sections {

/** The key of row `number`. A single-key table ignores the number. */
inline std::string KeyOf(const Table& table, int number) {
  if (table.single()) return std::string(table.key);
  std::string key = Padded(number, table.rows.width);
  if (!table.rows.prefix.empty()) key.insert(0, table.rows.prefix);
  return key.append(table.rows.suffix);
}

/** The trimmed value of row `number`, or "" if the key is missing. Valid as long as `project`. */
inline std::string_view RowValue(const IniText& project, const Table& table, int number) {
  return Trim(project.Get(table.section, KeyOf(table, number)));
}

/** The trimmed value of a single-key table. */
inline std::string_view KeyValue(const IniText& project, const Table& table) {
  return Trim(project.Get(table.section, table.key));
}

/** True if the value is one of the table's empty rows. */
inline bool IsEmptyRow(const Table& table, std::string_view value) {
  return std::ranges::find(table.empty_rows, value) != table.empty_rows.end();
}

/** Writes a row, or removes its key if the row is unused. */
inline void StoreRow(IniEdit& project, const Table& table, int number, std::string_view value, bool unused) {
  const std::string key = KeyOf(table, number);
  if (unused) {
    project.DeleteKey(table.section, key);
  } else {
    project.Set(table.section, key, value);
  }
}

/** Like the above; the table's empty rows are unused. */
inline void StoreRow(IniEdit& project, const Table& table, int number, std::string_view value) {
  StoreRow(project, table, number, value, IsEmptyRow(table, value));
}

/** Writes "Max", the number of rows that the section can hold. */
inline void StoreMax(IniEdit& project, const Table& table) {
  project.Set(table.section, kMaxKey, std::to_string(table.rows.last));
}

/** Writes "Max" and "Now", the number of rows in use. */
inline void StoreRowCounts(IniEdit& project, const Table& table, int now) {
  StoreMax(project, table);
  project.Set(table.section, kNowKey, std::to_string(now));
}

/** Calls `take` with each piece of the list, including empty ones. A list without a pipe is one piece; an
 * empty list has none. */
template <typename Take>
void ForEachPiece(std::string_view list, Take take) {
  if (list.empty()) return;
  std::size_t start = 0;
  for (std::size_t pipe = list.find('|'); pipe != std::string_view::npos; pipe = list.find('|', start)) {
    take(list.substr(start, pipe - start));
    start = pipe + 1;
  }
  take(list.substr(start));
}

/** Calls `take` for each real member of a list. Empty pieces, "F" and numbers below 1 take no place in a
 * pool. */
template <typename Take>
void ForEachMember(std::string_view list, Take take) {
  ForEachField(list, [&](std::string_view member) {
    if (Val(member) >= 1) take(member);
  });
}

}  // namespace tarvok::sections
