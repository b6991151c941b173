#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "sections/uses.h"
#include "store/digit_code.h"
#include "store/field_list.h"

namespace tarvok::sections {

/** Reads a section's wire image, or one record of it. Offsets count from its start; bytes past its end read
 * as 0. The bytes must outlive the reader. The texts returned here are short enough for a string's inline
 * buffer; anything that may be longer than 15 characters is added directly to a RowText. */
class ImageReader {
 public:
  explicit ImageReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  /** Record `index`, from 0, where each record has `size` bytes. */
  ImageReader Record(int index, int size) const { return Part(index * size, size); }
  ImageReader Part(int at, int size) const;

  int Byte(int at) const;
  /** 16 bits, low byte first; 65,535 whenever the high byte is 255. */
  int Word(int at) const;
  /** 16 bits, low byte first, unchanged: for sections where only 65,535 means "not set". */
  int RawWord(int at) const { return Byte(at) + 256 * Byte(at + 1); }
  /** `count` bytes, or fewer if the image ends first. */
  std::span<const std::uint8_t> Bytes(int at, int count) const;
  /** The bytes as characters, 0 included. */
  std::string Text(int at, int count) const;

  /** The byte in decimal, "F" for 255. */
  std::string Plain(int at) const;
  /** The 16 bits in decimal; "F" if the high byte is 255. */
  std::string PlainWord(int at) const;
  /** The byte plus 1, padded to `width` digits; "F" for 255. */
  std::string PlusOne(int at, int width = 0) const;
  /** The 16 bits plus 1, padded to `width` digits; "F" if the high byte is 255. */
  std::string PlusOneWord(int at, int width = 0) const;
  /** Like PlusOneWord, but "F" only for 65,535. */
  std::string RawPlusOneWord(int at, int width = 0) const;
  /** The digits of `count` bytes, skipping bytes 0 and 255; "F" if there are none. */
  std::string Digits(int at, int count) const;

 private:
  std::span<const std::uint8_t> bytes_;
};

/** Builds rows one after another in the same memory: fields joined by pipes, without a closing pipe. */
class RowText {
 public:
  RowText() { text_.reserve(kUsualRow); }

  /** Begins the next row. */
  RowText& Clear();
  RowText& Add(std::string_view field);
  /** Adds the digits of packed bytes as UnpackDigits returns them; "F" if there are none, because an empty
   * field would move the following fields up. */
  RowText& AddDigits(std::span<const std::uint8_t> bytes, DialSymbols symbols, SkippedBytes skipped);
  /** Adds the bytes as characters, except those in `left_out`. Leading and trailing blanks are dropped; "F"
   * if nothing is left. */
  RowText& AddCharacters(std::span<const std::uint8_t> bytes, std::string_view left_out);
  /** Like AddCharacters, leaving out control characters and pipes, which would break the row. */
  RowText& AddText(std::span<const std::uint8_t> bytes);
  /** Replaces every `from` in the row so far with `to`. */
  RowText& Replace(char from, char to);
  const std::string& str() const { return text_; }

 private:
  static constexpr std::size_t kUsualRow = 128;

  /** Ends the previous field and returns where the next one starts. */
  std::size_t NextField();

  std::string text_;
  bool first_ = true;
};

}  // namespace tarvok::sections
