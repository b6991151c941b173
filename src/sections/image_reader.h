#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "sections/uses.h"
#include "store/digit_code.h"
#include "store/field_list.h"

namespace tarvok::sections {

/** A section's wire image, or a record of it. Offsets count from its start; behind its end all bytes are 0.
 * The bytes must outlive the reader. The texts are short, so that a string holds them without asking for memory;
 * what may be longer than 15 characters goes right into a RowText. */
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
  /** The digits of `count` bytes, bytes 0 and 255 skipped; "F" if there is none. */
  std::string Digits(int at, int count) const;

 private:
  std::span<const std::uint8_t> bytes_;
};

/** Rows while a decoder builds them, one after the other in the same memory: fields joined by pipes, no closing pipe. */
class RowText {
 public:
  RowText() { text_.reserve(kUsualRow); }

  /** Begins the next row. */
  RowText& Clear();
  RowText& Add(std::string_view field);
  /** The digits of packed bytes as UnpackDigits gives them; "F" where there are none, since an empty
   * field would move those behind it up. */
  RowText& AddDigits(std::span<const std::uint8_t> bytes, DialSymbols symbols, SkippedBytes skipped);
  /** The bytes as characters but for those of `left_out`, so that what stands behind one closes up. Blanks at
   * the ends are dropped; "F" if nothing is left. */
  RowText& AddCharacters(std::span<const std::uint8_t> bytes, std::string_view left_out);
  /** The same without control characters and pipes, which would cut the row or shift the fields behind. */
  RowText& AddText(std::span<const std::uint8_t> bytes);
  /** Makes each `from` of the row so far a `to`. */
  RowText& Replace(char from, char to);
  const std::string& str() const { return text_; }

 private:
  static constexpr std::size_t kUsualRow = 128;

  /** Closes the field in front and returns where the next one starts. */
  std::size_t NextField();

  std::string text_;
  bool first_ = true;
};

}  // namespace tarvok::sections
