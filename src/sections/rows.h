#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/record_writer.h"
#include "sections/uses.h"
#include "sections/wire_values.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"
#include "store/number_text.h"

namespace tarvok::sections {

/** The key of row `number`. A single-key table ignores the number. */
inline std::string KeyOf(const Table& table, int number) {
  if (table.single()) return std::string(table.key);
  return std::string(table.rows.prefix).append(Padded(number, table.rows.width)).append(table.rows.suffix);
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

/** Writes "Max", the number of rows that the section can hold. */
inline void StoreMax(IniEdit& project, const Table& table) {
  project.Set(table.section, kMaxKey, std::to_string(table.rows.last));
}

/** Writes "Max" and "Now", the number of rows in use. */
inline void StoreRowCounts(IniEdit& project, const Table& table, int now) {
  StoreMax(project, table);
  project.Set(table.section, kNowKey, std::to_string(now));
}

/** Records of one size, one per row. The record of an unused row has `unset_count` bytes of 255 from
 * `unset_at` and is 0 elsewhere. */
struct RecordShape {
  int size;
  int unset_at = 0;
  int unset_count = 0;
};

/** Encodes a table's rows into consecutive records from the image's start, calling `encode(RecordWriter&)`
 * for each row in use, which may be a RecordLayout. A row is unused if its key is missing or empty, or if its
 * number is above `last`. */
template <typename EncodeRow>
void EncodeRows(const IniText& project, const Table& table, ImageWriter& image, RecordShape shape,
                const EncodeRow& encode, std::int64_t last = INT64_MAX) {
  for (int number = table.rows.first; number <= table.rows.last; ++number) {
    const std::string key = KeyOf(table, number);
    const std::string_view value = Trim(project.Get(table.section, key));
    const int start = (number - table.rows.first) * shape.size;
    if (number > last || value.empty()) {
      image.Fill(start + shape.unset_at, shape.unset_count, kUnsetByte);
      continue;
    }
    RecordWriter row(image, start, table, key, value);
    encode(row);
  }
}

/** Decodes consecutive records of `size` bytes into a table's rows. `decode(const ImageReader&, RowText&)`
 * gets each record and an empty row to fill; it may be a RecordLayout. The key of a row is removed if
 * `unused(std::string_view)` says so of its value. */
template <typename DecodeRow, typename IsUnused>
void DecodeRows(const ImageReader& image, IniEdit& project, const Table& table, int size,
                const DecodeRow& decode, IsUnused unused) {
  RowText row;
  for (int number = table.rows.first; number <= table.rows.last; ++number) {
    decode(image.Record(number - table.rows.first, size), row.Clear());
    StoreRow(project, table, number, row.str(), unused(row.str()));
  }
}

/** Like the above; the table's empty rows are unused. */
template <typename DecodeRow>
void DecodeRows(const ImageReader& image, IniEdit& project, const Table& table, int size,
                const DecodeRow& decode) {
  DecodeRows(image, project, table, size, decode,
             [&](std::string_view value) { return IsEmptyRow(table, value); });
}

/** For DecodeRows: every row is written. */
inline bool NoneUnused(std::string_view /*value*/) {
  return false;
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
