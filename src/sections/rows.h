#pragma once

#include <string>
#include <string_view>

#include "sections/field.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"
#include "store/number_text.h"

namespace tarvok {

inline constexpr std::string_view kMaxKey = "Max";
inline constexpr std::string_view kNowKey = "Now";

/** The key of row `number`. */
inline std::string KeyOf(const Table& table, int number) {
  return Padded(number, table.rows.width).append(table.rows.suffix);
}

/** The trimmed value of row `number`, "" for an unused row. Valid as long as the project text. */
inline std::string_view RowValue(const IniText& project, const Table& table, int number) {
  return Trim(project.Get(table.section, KeyOf(table, number)));
}

/** Writes a row, or removes its key where the value is one of the table's empty rows. */
inline void StoreRow(IniEdit& project, const Table& table, int number, std::string_view value) {
  for (const std::string_view empty : table.empty_rows) {
    if (value == empty) {
      project.DeleteKey(table.section, KeyOf(table, number));
      return;
    }
  }
  project.Set(table.section, KeyOf(table, number), value);
}

/** Writes "Max", the number of rows a section can hold, and "Now", the number in use. */
inline void StoreRowCounts(IniEdit& project, const Table& table, int max, int now) {
  project.Set(table.section, kMaxKey, std::to_string(max));
  project.Set(table.section, kNowKey, std::to_string(now));
}

}  // namespace tarvok
