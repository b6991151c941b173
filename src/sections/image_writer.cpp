#include "sections/image_writer.h"

#include <algorithm>
#include <span>

#include "store/number_text.h"

namespace tarvok {
namespace {

constexpr std::int64_t kMaxByte = 255;
constexpr std::int64_t kMaxWord = 65535;
constexpr std::string_view kTooLarge = "is more than its place on the wire can hold";
constexpr std::string_view kNegative = "is negative";
constexpr std::string_view kNoDigits = "holds a character that can't be dialled";

}  // namespace

void ImageWriter::Byte(int at, int value) {
  Fill(at, 1, value);
}

void ImageWriter::Word(int at, int value) {
  Byte(at, value % 256);
  Byte(at + 1, value / 256);
}

void ImageWriter::Fill(int at, int count, int value) {
  if (!Inside(at, count) || value < 0 || value > kMaxByte) {
    Fail("image", std::to_string(at), "offset", std::to_string(value),
         "lies outside of the image or its bytes");
    return;
  }
  std::fill_n(bytes_.begin() + at, count, static_cast<std::uint8_t>(value));
}

bool ImageWriter::Digits(int at, int count, std::string_view number, DialSymbols symbols) {
  Fill(at, count, 0);
  if (!ok()) return true;  // the error that is kept says it
  return PackDigits(number, symbols,
                    std::span(bytes_).subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(count)));
}

void ImageWriter::Text(int at, int count, std::string_view text) {
  Fill(at, count, 0);
  if (!Inside(at, count)) return;
  const std::string_view used = text.substr(0, static_cast<std::size_t>(count));
  std::transform(used.begin(), used.end(), bytes_.begin() + at,
                 [](char c) { return static_cast<std::uint8_t>(c); });
}

void ImageWriter::Fail(std::string_view section, std::string_view row, std::string_view field,
                       std::string_view value, std::string_view why) {
  if (!ok()) return;
  error_.append("section ").append(section).append(", row ").append(row).append(", field ").append(field);
  error_.append(": value ").append(value).append(" ").append(why);
}

std::int64_t RecordWriter::Value(int field) const {
  return IsSet(field) ? Val(fields_[field]) : 0;
}

void RecordWriter::Fail(int field, std::string_view why) {
  const auto index = static_cast<std::size_t>(field) - 1;
  const std::string_view name =
      index < table_.fields.size() ? table_.fields[index].name : std::string_view("?");
  image_.Fail(table_.section, key_, name, fields_[field], why);
}

void RecordWriter::Checked(int at, int field, std::int64_t value) {
  if (value < 0 || value > kMaxByte) {
    Fail(field, value < 0 ? kNegative : kTooLarge);
    return;
  }
  Byte(at, static_cast<int>(value));
}

void RecordWriter::Plain(int at, int field, int unset) {
  Checked(at, field, IsSet(field) ? Value(field) : unset);
}

void RecordWriter::PlainWord(int at, int field, int unset) {
  const std::int64_t value = IsSet(field) ? Value(field) : unset;
  if (value < 0 || value > kMaxWord) {
    Fail(field, value < 0 ? kNegative : kTooLarge);
    return;
  }
  image_.Word(start_ + at, static_cast<int>(value));
}

void RecordWriter::MinusOne(int at, int field, int unset) {
  const std::int64_t value = Value(field);
  if (value > kMaxByte) {
    Fail(field, kTooLarge);  // 256 would go out as "not set"
    return;
  }
  Byte(at, value < 1 ? unset : static_cast<int>(value) - 1);
}

void RecordWriter::MinusOneWord(int at, int field) {
  const std::int64_t value = Value(field);
  if (value > kMaxWord) {
    Fail(field, kTooLarge);
    return;
  }
  image_.Word(start_ + at, value < 1 ? static_cast<int>(kMaxWord) : static_cast<int>(value) - 1);
}

void RecordWriter::Digits(int at, int count, int field, DialSymbols symbols) {
  const std::string_view number = IsSet(field) ? fields_[field] : std::string_view();
  if (!image_.Digits(start_ + at, count, number, symbols)) Fail(field, kNoDigits);
}

}  // namespace tarvok
