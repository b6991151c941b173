#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "sections/field.h"
#include "sections/image_writer.h"
#include "store/field_list.h"

namespace tarvok {

/**
 * A value on its way to the wire that is no plain field of a pipe list: one of a row's many members, a key of
 * its own, or a field that is scaled first. Offsets count from the image's start. A value that its place
 * can't hold is an error that names section, row and field.
 */
class ValueWriter {
 public:
  /** `field` counts from 1; `member` is the place in a list of alike fields, 0 if there is only one. All
   * views must outlive the writer. */
  ValueWriter(ImageWriter& image, const Table& table, std::string_view key, std::string_view text,
              int field = 1, int member = 0)
      : image_(image), table_(table), key_(key), text_(text), field_(field), member_(member) {}

  /** `value` as one byte, 0 to 255. */
  void Byte(int at, std::int64_t value) {
    if (Fits(value, kMaxByte)) image_.Byte(at, static_cast<int>(value));
  }
  /** `value` as 16 bits, low byte first, 0 to 65,535. */
  void Word(int at, std::int64_t value) {
    if (Fits(value, kMaxWord)) image_.Word(at, static_cast<int>(value));
  }
  /** `value` minus 1 as 16 bits; 1 to 65,535, for 65,536 would go out as "not set". */
  void MinusOneWord(int at, std::int64_t value) {
    if (Fits(value, kMaxWord)) image_.Word(at, static_cast<int>(value) - 1);
  }
  /** Packed digits over `count` bytes, cut there; a character that is no hexadecimal digit is an error. */
  void Digits(int at, int count, std::string_view number, DialSymbols symbols = DialSymbols::kDigits) {
    if (!image_.Digits(at, count, number, symbols)) Fail("holds a character that can't be dialled");
  }
  void Fail(std::string_view why) {
    std::string name(table_.fields[static_cast<std::size_t>(field_) - 1].name);
    if (member_ > 0) name.append(" ").append(std::to_string(member_));
    image_.Fail(table_.section, key_, name, text_, why);
  }

 private:
  static constexpr std::int64_t kMaxByte = 255;
  static constexpr std::int64_t kMaxWord = 65535;

  bool Fits(std::int64_t value, std::int64_t most) {
    if (value >= 0 && value <= most) return true;
    Fail(value < 0 ? "is negative" : "is more than its place on the wire can hold");
    return false;
  }

  ImageWriter& image_;
  const Table& table_;
  std::string_view key_;
  std::string_view text_;
  int field_;
  int member_;
};

/** A telephone number that is the whole value of a key, as packed digits; all 0 for an empty value or "F". */
inline void PutNumber(ImageWriter& image, int at, int count, const Table& table, std::string_view key,
                      std::string_view value) {
  ValueWriter(image, table, key, value).Digits(at, count, value == kUnset ? std::string_view() : value);
}

}  // namespace tarvok
