#pragma once

#include <string>
#include <string_view>

#include "sections/image_writer.h"
#include "sections/rows.h"

namespace tarvok {

/** Walks a table's rows beside the records of `record` bytes that they fill from the image's start, and calls
 * encode(RecordWriter&, bool used) for each. A row is unused if its key is missing or empty. */
template <typename Encode>
void EncodeRows(const IniText& project, ImageWriter& image, const Table& table, int record, Encode encode) {
  for (int number = table.rows.first; number <= table.rows.last; ++number) {
    const std::string key = KeyOf(table, number);
    const std::string_view value = Trim(project.Get(table.section, key));
    RecordWriter row(image, (number - table.rows.first) * record, table, key, value);
    encode(row, !value.empty());
  }
}

}  // namespace tarvok
