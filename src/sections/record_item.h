#pragma once

#include <string_view>

#include "sections/uses.h"

namespace tarvok::sections {

class ImageReader;
class RecordWriter;
class RowText;

/** How a field is written to a record and read back. */
struct Rule {
  int bytes;
  /** nullptr: the bytes stay 0. */
  void (*put)(RecordWriter& row, int at, int field);
  /** Adds the field to the row. nullptr: the bytes are not read. */
  void (*get)(const ImageReader& record, int at, RowText& row);
  std::string_view words = {};  // for the table of bytes in the section's header

  constexpr Rule PutBy(void (*odd)(RecordWriter&, int, int)) const { return {bytes, odd, get, words}; }
  constexpr Rule ReadBy(void (*odd)(const ImageReader&, int, RowText&)) const {
    return {bytes, put, odd, words};
  }
};

/** Some bytes of a record: their offset, and the field that they hold (0: none). */
struct RecordItem {
  int at;
  int field;
  Rule rule;
};

}  // namespace tarvok::sections
