#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/ports/raw_word.h"
#include "sections/ports/row_walk.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"
#include "store/number_text.h"

namespace tarvok {

/** What the routing sections' records share beside what every writer and reader of records can do. */
inline constexpr int kUnsetByte = 255;

/** Records of one size, one a row. That of an unused row is `unset_count` bytes of 255 from `unset_at`, all
 * else 0. */
struct RecordShape {
  int size;
  int unset_at;
  int unset_count;
};

/** Walks the table's rows and encodes each one in use with `encode(RecordWriter&)`. */
template <typename EncodeRow>
void EncodeRecords(const IniText& project, const Table& table, ImageWriter& image, RecordShape shape,
                   EncodeRow encode) {
  EncodeRows(project, image, table, shape.size, [&](RecordWriter& row, bool used) {
    if (used) {
      encode(row);
    } else {
      row.Fill(shape.unset_at, shape.unset_count, kUnsetByte);
    }
  });
}

/** Calls `take` with each member of a list that stands for something: empty pieces, "F" and numbers below 1
 * take no place in a pool. */
template <typename Take>
void ForEachMember(std::string_view list, Take take) {
  ForEachField(list, [&](std::string_view member) {
    if (Val(member) >= 1) take(member);
  });
}

/** Writes "Max" alone: these sections do not count their rows. */
inline void StoreMax(IniEdit& project, const Table& table) {
  project.Set(table.section, kMaxKey, std::to_string(table.rows.last));
}

/** 16 bits, low byte first, 0 to 65,535. */
inline void PutWord(RecordWriter& row, int at, int word) {
  row.Byte(at, word % 256);
  row.Byte(at + 1, word / 256);
}

/** The text's bytes, 0 behind its end, cut at `count`. */
inline void PutText(RecordWriter& row, int at, int count, std::string_view text) {
  const int used = std::min(count, static_cast<int>(text.size()));
  row.Fill(at, count, 0);
  for (int i = 0; i < used; ++i) {
    row.Byte(at + i, static_cast<unsigned char>(text[static_cast<std::size_t>(i)]));
  }
}

/** The field's text, "" where it is not set. */
inline std::string_view TextOf(const RecordWriter& row, int field) {
  return row.IsSet(field) ? row.Get(field) : std::string_view();
}

/** The field's text read as hexadecimal, so that a decimal text becomes packed decimal; 255 where it is not
 * set. */
inline void PutHex(RecordWriter& row, int at, int field) {
  row.Checked(at, field, row.IsSet(field) ? ValHex(row.Get(field)) : kUnsetByte);
}

/** Makes the field's value an error: it is more than its place on the wire can hold. */
inline void TooLarge(RecordWriter& row, int field) {
  row.Checked(0, field, kUnsetByte + 1);
}

/** The bytes as characters. A byte 0 does not end the text but is left out, so what stands behind it closes
 * up. Blanks at the ends are dropped; "F" if nothing is left. */
inline std::string JoinedText(const ImageReader& record, int at, int count) {
  std::string text = record.Text(at, count);
  std::erase(text, '\0');
  const std::string_view trimmed = Trim(text);
  return std::string(trimmed.empty() ? kUnset : trimmed);
}

}  // namespace tarvok
