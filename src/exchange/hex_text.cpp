#include "exchange/hex_text.h"

#include <algorithm>
#include <charconv>

namespace tarvok::exchange {

std::string HexText(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
  }
  return text;
}

std::optional<Bytes> ParseHex(std::string_view text) {
  Bytes bytes;
  while (true) {
    const std::size_t start = text.find_first_not_of(" \r\n");
    if (start == std::string_view::npos) return bytes;
    text.remove_prefix(start);
    std::uint8_t byte = 0;
    const char* end = text.data() + std::min<std::size_t>(text.size(), 2);
    const auto [stop, error] = std::from_chars(text.data(), end, byte, 16);
    if (error != std::errc() || stop != text.data() + 2) return std::nullopt;
    bytes.push_back(byte);
    text.remove_prefix(2);
  }
}

}  // namespace tarvok::exchange
