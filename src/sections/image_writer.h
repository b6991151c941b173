#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sections/uses.h"
#include "store/digit_code.h"

namespace tarvok::sections {

/**
 * The wire image of a section that an encoder fills. It has its final size from the start, with all bytes 0.
 * Writing outside the image, or a value that a byte or pool can't hold, is an error. The first error is kept
 * and shown to the user.
 */
class ImageWriter {
 public:
  explicit ImageWriter(int size) : bytes_(static_cast<std::size_t>(size), 0) {}

  int size() const { return static_cast<int>(bytes_.size()); }
  void Byte(int at, int value);
  /** 16 bits, low byte first. */
  void Word(int at, int value);
  void Fill(int at, int count, int value);
  /** Writes packed digits to `count` bytes. False if a character that would be written is not a hexadecimal
   * digit. */
  [[nodiscard]] bool Digits(int at, int count, std::string_view number, DialSymbols symbols);
  /** Writes the text's bytes, cut at `count` or padded with 0. */
  void Text(int at, int count, std::string_view text);

  /** Keeps the first error as "section X, row Y, field Z: value V, why". */
  void Fail(std::string_view section, std::string_view row, std::string_view field, std::string_view value,
            std::string_view why);

  bool ok() const { return error_.empty(); }
  const std::string& error() const { return error_; }
  const std::vector<std::uint8_t>& bytes() const { return bytes_; }

 private:
  bool Inside(int at, int count) const { return at >= 0 && count >= 0 && at + count <= size(); }

  std::vector<std::uint8_t> bytes_;
  std::string error_;
};

}  // namespace tarvok::sections
