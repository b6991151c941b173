#pragma once

#include <cstdint>
#include <string_view>

#include "sections/field.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/field_list.h"

namespace tarvok::sections {

/** Why a member of a list is refused that has no room left; packed are the numbers of classes. */
constexpr std::string_view PoolFull(const Members& members) {
  return members.packed ? "has no place in the pool that all classes share"
                        : "has no place in the pool that all groups share";
}

/**
 * One value on its way to the wire, and the field of the row that it is told by where its place can't hold
 * it. Offsets count from the image's start.
 */
class ValueWriter {
 public:
  /** `text` is the value as it is told in an error, `field` counts from 1, `member` is the place in a list of
   * alike fields, 0 if there is only one. All views must outlive the writer. */
  ValueWriter(ImageWriter& image, const Table& table, std::string_view key, std::string_view text,
              int field = 1, int member = 0)
      : image_(image), table_(table), key_(key), text_(text), field_(field), member_(member) {}

  /** One byte, 0 to 255. */
  void Byte(int at, std::int64_t value);
  /** 16 bits, low byte first, 0 to 65,535. */
  void Word(int at, std::int64_t value);
  /** `value` minus 1 as one byte; `unset` for a value below 1. 256 is too large: it would go out as "not
   * set". */
  void MinusOne(int at, std::int64_t value, int unset);
  /** `value` minus 1 as 16 bits; 255, 255 for a value below 1. 65,536 is too large in the same way. */
  void MinusOneWord(int at, std::int64_t value);
  /** Packed digits over `count` bytes, cut there; a character that is no hexadecimal digit is an error. */
  void Digits(int at, int count, std::string_view number, DialSymbols symbols = DialSymbols::kDigits);
  void Fail(std::string_view why);
  /** The value is more than its place on the wire can hold. */
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

/** A telephone number that is the whole value of a key, as packed digits; all 0 for an empty value or "F". */
void PutNumber(ImageWriter& image, int at, int count, const Table& table, std::string_view key,
               std::string_view value);

/**
 * One record of an image and the project row that it is made of. Offsets count from the record's start,
 * fields from 1. A field that is empty, missing or "F" is not set. A value that its place can't hold is an
 * error of its field.
 */
class RecordWriter {
 public:
  /** `start` is the record's place in the image; `key` and `value` are the row's. They must outlive the
   * writer. */
  RecordWriter(ImageWriter& image, int start, const Table& table, std::string_view key,
               std::string_view value)
      : image_(image), start_(start), table_(table), key_(key), fields_(value) {}

  std::string_view key() const { return key_; }
  bool IsSet(int field) const { return !fields_[field].empty() && fields_[field] != kUnset; }
  std::string_view Get(int field) const { return fields_[field]; }
  /** The field's text, "" where it is not set. */
  std::string_view SetText(int field) const { return IsSet(field) ? fields_[field] : std::string_view(); }
  /** The field's number; 0 where it is not set. */
  std::int64_t Value(int field) const;

  void Byte(int at, int value) { image_.Byte(start_ + at, value); }
  /** 16 bits, low byte first. */
  void Word(int at, int value) { image_.Word(start_ + at, value); }
  void Fill(int at, int count, int value) { image_.Fill(start_ + at, count, value); }
  /** The bytes of a text, 0 behind its end, cut at `count`. */
  void Text(int at, int count, std::string_view text) { image_.Text(start_ + at, count, text); }

  /** The value as one byte, `unset` where it is not set. */
  void Plain(int at, int field, int unset) { Checked(at, field, IsSet(field) ? Value(field) : unset); }
  /** The value as 16 bits, low byte first. */
  void PlainWord(int at, int field, int unset) {
    CheckedWord(at, field, IsSet(field) ? Value(field) : unset);
  }
  /** The value minus 1 as one byte; `unset` where it is not set, 0, negative or no number. */
  void MinusOne(int at, int field) { MinusOne(at, field, 255); }
  void MinusOne(int at, int field, int unset) { Of(field).MinusOne(start_ + at, Value(field), unset); }
  /** The value minus 1 as 16 bits, low byte first; 255, 255 where it is not set. */
  void MinusOneWord(int at, int field) { Of(field).MinusOneWord(start_ + at, Value(field)); }
  /** The text read as hexadecimal, so that a decimal text becomes packed decimal; 255 where it is not set. */
  void Hex(int at, int field);
  /** Packed digits over `count` bytes, all 0 where it is not set. */
  void Digits(int at, int count, int field, DialSymbols symbols = DialSymbols::kDigits) {
    Of(field).Digits(start_ + at, count, SetText(field), symbols);
  }
  /** Puts `value` as a byte of that field. */
  void Checked(int at, int field, std::int64_t value) { Of(field).Byte(start_ + at, value); }
  /** Puts `value` as 16 bits of that field. */
  void CheckedWord(int at, int field, std::int64_t value) { Of(field).Word(start_ + at, value); }

  /** Makes the field's value an error: it is more than its place on the wire can hold. */
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
