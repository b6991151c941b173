#include "sections/image_reader.h"

#include <algorithm>

#include "sections/wire_values.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok {
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
  const std::span<const std::uint8_t> byte = Bytes(at, 1);
  return byte.empty() ? 0 : byte.front();
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

std::string ImageReader::PlusOne(int at, int width) const {
  return PlusOneOrUnset(Byte(at), kUnsetByte, width);
}

std::string ImageReader::PlusOneWord(int at, int width) const {
  return PlusOneOrUnset(Word(at), kUnsetWord, width);
}

std::string ImageReader::RawPlusOneWord(int at, int width) const {
  return PlusOneOrUnset(RawWord(at), kUnsetWord, width);
}

std::string ImageReader::Characters(int at, int count, std::string_view left_out) const {
  std::string text = Text(at, count);
  std::erase_if(text, [&](char c) { return left_out.find(c) != std::string_view::npos; });
  const std::string_view trimmed = Trim(text);
  return std::string(trimmed.empty() ? kUnset : trimmed);
}

std::string ImageReader::Digits(int at, int count, DialSymbols symbols) const {
  const std::string number = UnpackDigits(Bytes(at, count), symbols, SkippedBytes::kZeroAndUnset);
  return number.empty() ? std::string(kUnset) : number;
}

}  // namespace tarvok
