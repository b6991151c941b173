#pragma once

#include <cstdint>
#include <string_view>

#include "sections/image_writer.h"
#include "sections/table.h"
#include "sections/uses.h"
#include "store/field_list.h"

namespace tarvok::sections {

/**
 * Writes one value to an image. If the value doesn't fit, the error names its row and field. Offsets count
 * from the image's start.
 */
class ValueWriter {
 public:
  /** `text` is the value as errors show it, `field` counts from 1, and `member` is the position, from 1, in a
   * list of the same field, or 0 if it is not a list. All references and views must outlive the writer. */
  ValueWriter(ImageWriter& image, const Table& table, std::string_view key, std::string_view text,
              int field = 1, int member = 0)
      : image_(image), table_(table), key_(key), text_(text), field_(field), member_(member) {}

  /** One byte, 0 to 255. */
  void Byte(int at, std::int64_t value);
  /** 16 bits, low byte first, 0 to 65,535. */
  void Word(int at, std::int64_t value);
  /** `value` minus 1 as one byte; `unset` for a value below 1. 256 is too large, because 255 means "not
   * set". */
  void MinusOne(int at, std::int64_t value, int unset);
  /** `value` minus 1 as 16 bits; 255, 255 for a value below 1. 65,536 is too large for the same reason. */
  void MinusOneWord(int at, std::int64_t value);
  /** Packed digits, cut at `count` bytes. A character that is not a hexadecimal digit is an error. */
  void Digits(int at, int count, std::string_view number, DialSymbols symbols = DialSymbols::kDigits);
  void Fail(std::string_view why);
  /** Reports that the value is more than its place on the wire can hold. */
  void TooLarge();

 private:
  bool Fits(std::int64_t value, std::int64_t most);

  ImageWriter& image_;
  const Table& table_;
  std::string_view key_;
  std::string_view text_;
  int field_;
  int member_;
};

/** Writes a telephone number that is the whole value of a key, as packed digits; all 0 if empty or "F". */
void PutNumber(ImageWriter& image, int at, int count, const Table& table, std::string_view key,
               std::string_view value);

/**
 * Writes one record of an image from a project row. Offsets count from the record's start, fields from 1. A
 * field that is empty, missing or "F" is not set. A value that doesn't fit is an error that names the field.
 */
class RecordWriter {
 public:
  /** `start` is the record's offset in the image; `key` and `value` are those of the row. All references and
   * views must outlive the writer. */
  RecordWriter(ImageWriter& image, int start, const Table& table, std::string_view key,
               std::string_view value)
      : image_(image), start_(start), table_(table), key_(key), fields_(value) {}

  std::string_view key() const { return key_; }
  bool IsSet(int field) const { return !fields_[field].empty() && fields_[field] != kUnset; }
  std::string_view Get(int field) const { return fields_[field]; }
  /** The field's text, or "" if it is not set. */
  std::string_view SetText(int field) const { return IsSet(field) ? fields_[field] : std::string_view(); }
  /** The field's number, or 0 if it is not set. */
  std::int64_t Value(int field) const;

  void Byte(int at, int value) { image_.Byte(start_ + at, value); }
  /** 16 bits, low byte first. */
  void Word(int at, int value) { image_.Word(start_ + at, value); }
  void Fill(int at, int count, int value) { image_.Fill(start_ + at, count, value); }
  /** The bytes of a text, cut at `count` or padded with 0. */
  void Text(int at, int count, std::string_view text) { image_.Text(start_ + at, count, text); }

  /** The value as one byte; `unset` if it is not set. */
  void Plain(int at, int field, int unset) { Checked(at, field, IsSet(field) ? Value(field) : unset); }
  /** The value as 16 bits, low byte first; `unset` if it is not set. */
  void PlainWord(int at, int field, int unset) {
    CheckedWord(at, field, IsSet(field) ? Value(field) : unset);
  }
  /** The value minus 1 as one byte; `unset` if it is not set, 0, negative or not a number. */
  void MinusOne(int at, int field) { MinusOne(at, field, 255); }
  void MinusOne(int at, int field, int unset) { Of(field).MinusOne(start_ + at, Value(field), unset); }
  /** The value minus 1 as 16 bits, low byte first; 255, 255 in the same cases. */
  void MinusOneWord(int at, int field) { Of(field).MinusOneWord(start_ + at, Value(field)); }
  /** The text read as hexadecimal, so that decimal digits become packed decimal; 255 if it is not set. */
  void Hex(int at, int field);
  /** Packed digits, cut at `count` bytes; all 0 if it is not set. */
  void Digits(int at, int count, int field, DialSymbols symbols = DialSymbols::kDigits) {
    Of(field).Digits(start_ + at, count, SetText(field), symbols);
  }
  /** Writes `value` as one byte; errors name `field`. */
  void Checked(int at, int field, std::int64_t value) { Of(field).Byte(start_ + at, value); }
  /** Writes `value` as 16 bits, low byte first; errors name `field`. */
  void CheckedWord(int at, int field, std::int64_t value) { Of(field).Word(start_ + at, value); }

  /** Reports that the field's value is more than its place on the wire can hold. */
  void TooLarge(int field) { Of(field).TooLarge(); }

 private:
  ValueWriter Of(int field) const { return {image_, table_, key_, fields_[field], field}; }

  ImageWriter& image_;
  int start_;
  const Table& table_;
  std::string_view key_;
  FieldList fields_;
};

}  // namespace tarvok::sections
