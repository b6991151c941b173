#include "sections/image_reader.h"

#include <algorithm>

#include "sections/wire_values.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::sections {
namespace {

std::string PlusOneOrUnset(int value, int unset, int width) {
  return value == unset ? std::string(kUnset) : Padded(value + 1, width);
}

}  // namespace

std::span<const std::uint8_t> ImageReader::Bytes(int at, int count) const {
  if (at < 0 || count <= 0 || static_cast<std::size_t>(at) >= bytes_.size()) return {};
  const auto start = static_cast<std::size_t>(at);
  return bytes_.subspan(start, std::min(static_cast<std::size_t>(count), bytes_.size() - start));
}

ImageReader ImageReader::Part(int at, int size) const {
  return ImageReader(Bytes(at, size));
}

int ImageReader::Byte(int at) const {
  return at < 0 || static_cast<std::size_t>(at) >= bytes_.size() ? 0 : bytes_[static_cast<std::size_t>(at)];
}

int ImageReader::Word(int at) const {
  return Byte(at + 1) == kUnsetByte ? kUnsetWord : RawWord(at);
}

std::string ImageReader::Text(int at, int count) const {
  const std::span<const std::uint8_t> bytes = Bytes(at, count);
  return {bytes.begin(), bytes.end()};
}

std::string ImageReader::Plain(int at) const {
  const int value = Byte(at);
  return value == kUnsetByte ? std::string(kUnset) : std::to_string(value);
}

std::string ImageReader::PlainWord(int at) const {
  const int value = Word(at);
  return value == kUnsetWord ? std::string(kUnset) : std::to_string(value);
}

std::string ImageReader::PlusOne(int at, int width) const {
  return PlusOneOrUnset(Byte(at), kUnsetByte, width);
}

std::string ImageReader::PlusOneWord(int at, int width) const {
  return PlusOneOrUnset(Word(at), kUnsetWord, width);
}

std::string ImageReader::RawPlusOneWord(int at, int width) const {
  return PlusOneOrUnset(RawWord(at), kUnsetWord, width);
}

std::string ImageReader::Digits(int at, int count) const {
  const std::string number = UnpackDigits(Bytes(at, count), DialSymbols::kDigits, SkippedBytes::kZeroAnd255);
  return number.empty() ? std::string(kUnset) : number;
}

RowText& RowText::Clear() {
  text_.clear();
  first_ = true;
  return *this;
}

std::size_t RowText::NextField() {
  if (!first_) text_ += '|';
  first_ = false;
  return text_.size();
}

RowText& RowText::Add(std::string_view field) {
  NextField();
  text_ += field;
  return *this;
}

RowText& RowText::AddDigits(std::span<const std::uint8_t> bytes, DialSymbols symbols, SkippedBytes skipped) {
  const std::size_t start = NextField();
  AppendDigits(bytes, symbols, skipped, text_);
  if (text_.size() == start) text_ += kUnset;
  return *this;
}

RowText& RowText::AddCharacters(std::span<const std::uint8_t> bytes, std::string_view left_out) {
  const std::size_t start = NextField();
  for (const std::uint8_t byte : bytes) {
    const char c = static_cast<char>(byte);
    const bool leading_blank = c == ' ' && text_.size() == start;
    if (!leading_blank && left_out.find(c) == std::string_view::npos) text_ += c;
  }
  while (text_.size() > start && text_.back() == ' ') text_.pop_back();
  if (text_.size() == start) text_ += kUnset;
  return *this;
}

RowText& RowText::AddText(std::span<const std::uint8_t> bytes) {
  static const std::string kLeftOut = [] {
    std::string characters = "|";
    for (char c = 0; c < ' '; ++c) characters += c;
    return characters;
  }();
  return AddCharacters(bytes, kLeftOut);
}

RowText& RowText::Replace(char from, char to) {
  std::replace(text_.begin(), text_.end(), from, to);
  return *this;
}

}  // namespace tarvok::sections
