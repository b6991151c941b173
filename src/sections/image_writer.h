#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sections/field.h"
#include "store/digit_code.h"
#include "store/field_list.h"

namespace tarvok {

/**
 * The wire image of a section while an encoder fills it. It has its final size from the start, all bytes 0.
 * Writes outside of it and values that a byte or pool can't hold are errors; the first one is kept and is
 * what the user reads.
 */
class ImageWriter {
 public:
  explicit ImageWriter(int size) : bytes_(static_cast<std::size_t>(size), 0) {}

  int size() const { return static_cast<int>(bytes_.size()); }
  void Byte(int at, int value);
  /** 16 bits, low byte first. */
  void Word(int at, int value);
  void Fill(int at, int count, int value);
  /** Packed digits over `count` bytes; false if a used character is no hexadecimal digit. */
  [[nodiscard]] bool Digits(int at, int count, std::string_view number, DialSymbols symbols);
  /** The text's bytes, 0 behind its end, cut at `count`. */
  void Text(int at, int count, std::string_view text);

  /** Keeps the first error as "section X, row Y, field Z: value V, why". */
  void Fail(std::string_view section, std::string_view row, std::string_view field, std::string_view value,
            std::string_view why);

  bool ok() const { return error_.empty(); }
  const std::string& error() const { return error_; }
  const std::vector<std::uint8_t>& bytes() const { return bytes_; }

 private:
  bool Inside(int at, int count) const { return at >= 0 && count >= 0 && at + count <= size(); }

  std::vector<std::uint8_t> bytes_;
  std::string error_;
};

/**
 * One record of an image and the project row that it is made of. Offsets count from the record's start,
 * fields from 1. A field that is empty, missing or "F" is not set.
 */
class RecordWriter {
 public:
  /** `start` is the record's place in the image; `key` and `value` are the row's. They must outlive the
   * writer. */
  RecordWriter(ImageWriter& image, int start, const Table& table, std::string_view key,
               std::string_view value)
      : image_(image), start_(start), table_(table), key_(key), fields_(value) {}

  bool IsSet(int field) const { return !fields_[field].empty() && fields_[field] != kUnset; }
  std::string_view Get(int field) const { return fields_[field]; }
  /** The field's number; 0 where it is not set. */
  std::int64_t Value(int field) const;

  void Byte(int at, int value) { image_.Byte(start_ + at, value); }
  void Fill(int at, int count, int value) { image_.Fill(start_ + at, count, value); }
  /** The value as one byte, `unset` where it is not set. A negative value or one above 255 is an error. */
  void Plain(int at, int field, int unset);
  /** The value as 16 bits, low byte first. */
  void PlainWord(int at, int field, int unset);
  /** The value minus 1 as one byte; 255 where it is not set, 0, negative or no number. Above 255 is an error.
   */
  void MinusOne(int at, int field) { MinusOne(at, field, 255); }
  void MinusOne(int at, int field, int unset);
  /** The value minus 1 as 16 bits, low byte first; 255, 255 where it is not set. Above 65,535 is an error. */
  void MinusOneWord(int at, int field);
  /** Packed digits over `count` bytes, all 0 where it is not set. A character that is no hexadecimal digit is
   * an error. */
  void Digits(int at, int count, int field, DialSymbols symbols = DialSymbols::kDigits);
  /** Puts `value` as a byte; outside 0 to 255 it is an error of that field. */
  void Checked(int at, int field, std::int64_t value);

 private:
  void Fail(int field, std::string_view why);

  ImageWriter& image_;
  int start_;
  const Table& table_;
  std::string_view key_;
  FieldList fields_;
};

}  // namespace tarvok
