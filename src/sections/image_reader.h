#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "store/digit_code.h"
#include "store/field_list.h"

namespace tarvok {

/** A row while a decoder builds it: fields joined by pipes, no closing pipe. */
class RowText {
 public:
  RowText& Add(std::string_view field) {
    if (!first_) text_ += '|';
    first_ = false;
    text_ += field;
    return *this;
  }
  const std::string& str() const { return text_; }

 private:
  std::string text_;
  bool first_ = true;
};

/** A section's wire image, or a record of it. Offsets count from its start; behind its end all bytes are 0.
 * The bytes must outlive the reader. */
class ImageReader {
 public:
  explicit ImageReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  /** Record `index` from 0 of records of `size` bytes. */
  ImageReader Record(int index, int size) const { return Part(index * size, size); }
  ImageReader Part(int at, int size) const;

  int Byte(int at) const;
  /** 16 bits, low byte first; 65,535 wherever the high byte is 255. */
  int Word(int at) const;
  /** 16 bits, low byte first, as they stand: for a section where 65,535 alone is "not set". */
  int RawWord(int at) const { return Byte(at) + 256 * Byte(at + 1); }
  /** `count` bytes; fewer where the image ends. */
  std::span<const std::uint8_t> Bytes(int at, int count) const;
  /** The bytes as characters, 0 included. */
  std::string Text(int at, int count) const;

  /** The byte in decimal, "F" for 255. */
  std::string Plain(int at) const;
  /** The byte plus 1, padded to `width` digits; "F" for 255. */
  std::string PlusOne(int at, int width = 0) const;
  /** The 16 bits plus 1, padded to `width` digits; "F" where the high byte is 255. */
  std::string PlusOneWord(int at, int width = 0) const;
  /** The same with "F" for 65,535 alone. */
  std::string RawPlusOneWord(int at, int width = 0) const;
  /** The bytes as characters but for those of `left_out`, so that what stands behind one closes up. Blanks at
   * the ends are dropped; "F" if nothing is left. */
  std::string Characters(int at, int count, std::string_view left_out) const;
  /** The digits of `count` bytes, bytes 0 and 255 skipped; "F" if there is none. */
  std::string Digits(int at, int count, DialSymbols symbols = DialSymbols::kDigits) const;

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace tarvok
