#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/record_writer.h"
#include "sections/rows.h"
#include "sections/table.h"
#include "sections/uses.h"
#include "sections/wire_values.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

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
/** For DecodeRows: rows to which `decode` added nothing are unused. */
inline bool BlankUnused(std::string_view value) {
  return value.empty();
}

}  // namespace tarvok::sections
