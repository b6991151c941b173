#include "sections/record_writer.h"

#include <string>

#include "sections/wire_values.h"
#include "store/number_text.h"

namespace tarvok::sections {
namespace {

constexpr std::string_view kTooLarge = "is more than its place on the wire can hold";
constexpr std::string_view kNegative = "is negative";
constexpr std::string_view kNoDigits = "holds a character that can't be dialled";

}  // namespace

void ValueWriter::Fail(std::string_view why) {
  const auto index = static_cast<std::size_t>(field_) - 1;
  const Field* field = index < table_.fields.size() ? &table_.fields[index] : nullptr;
  std::string name(field != nullptr ? field->name : std::string_view("?"));
  if (member_ > 0) name.append(" ").append(std::to_string(member_));
  image_.Fail(table_.section, key_, name, field != nullptr && field->secret ? kHiddenValue : text_, why);
}

void ValueWriter::TooLarge() {
  Fail(kTooLarge);
}

bool ValueWriter::Fits(std::int64_t value, std::int64_t most) {
  if (value >= 0 && value <= most) return true;
  Fail(value < 0 ? kNegative : kTooLarge);
  return false;
}

void ValueWriter::Byte(int at, std::int64_t value) {
  if (Fits(value, kUnsetByte)) image_.Byte(at, static_cast<int>(value));
}

void ValueWriter::Word(int at, std::int64_t value) {
  if (Fits(value, kUnsetWord)) image_.Word(at, static_cast<int>(value));
}

void ValueWriter::MinusOne(int at, std::int64_t value, int unset) {
  if (value < 1) {
    image_.Byte(at, unset);
  } else if (Fits(value, kUnsetByte)) {
    image_.Byte(at, static_cast<int>(value) - 1);
  }
}

void ValueWriter::MinusOneWord(int at, std::int64_t value) {
  if (value < 1) {
    image_.Word(at, kUnsetWord);
  } else if (Fits(value, kUnsetWord)) {
    image_.Word(at, static_cast<int>(value) - 1);
  }
}

void ValueWriter::Digits(int at, int count, std::string_view number, DialSymbols symbols) {
  if (!image_.Digits(at, count, number, symbols)) Fail(kNoDigits);
}

void PutNumber(ImageWriter& image, int at, int count, const Table& table, std::string_view key,
               std::string_view value) {
  ValueWriter(image, table, key, value).Digits(at, count, value == kUnset ? std::string_view() : value);
}

std::int64_t RecordWriter::Value(int field) const {
  return IsSet(field) ? Val(fields_[field]) : 0;
}

void RecordWriter::Hex(int at, int field) {
  Checked(at, field, IsSet(field) ? ValHex(fields_[field]) : kUnsetByte);
}

}  // namespace tarvok::sections
