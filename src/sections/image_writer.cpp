#include "sections/image_writer.h"

#include <algorithm>
#include <span>

#include "sections/wire_values.h"

namespace tarvok::sections {

void ImageWriter::Byte(int at, int value) {
  Fill(at, 1, value);
}

void ImageWriter::Word(int at, int value) {
  Byte(at, value % 256);
  Byte(at + 1, value / 256);
}

void ImageWriter::Fill(int at, int count, int value) {
  if (!Inside(at, count) || value < 0 || value > kUnsetByte) {
    Fail("image", std::to_string(at), "offset", std::to_string(value),
         "lies outside of the image or its bytes");
    return;
  }
  std::fill_n(bytes_.begin() + at, count, static_cast<std::uint8_t>(value));
}

bool ImageWriter::Digits(int at, int count, std::string_view number, DialSymbols symbols) {
  Fill(at, count, 0);
  if (!ok()) return true;  // the error is already kept
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

}  // namespace tarvok::sections
