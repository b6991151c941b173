#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/floors.h"

namespace tarvok::test {

/** Bytes from hexadecimal text, with blanks between them or without; "XX*n" stands for n copies of a byte. */
inline std::vector<std::uint8_t> Hex(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text[at] == ' ') {
      ++at;
      continue;
    }
    const auto byte = static_cast<std::uint8_t>(std::stoi(std::string(text.substr(at, 2)), nullptr, 16));
    at += 2;
    std::size_t count = 1;
    if (at < text.size() && text[at] == '*') {
      std::size_t digits = 0;
      count = static_cast<std::size_t>(std::stoi(std::string(text.substr(at + 1, 8)), &digits));
      at += 1 + digits;
    }
    bytes.insert(bytes.end(), count, byte);
  }
  return bytes;
}

}  // namespace tarvok::test
