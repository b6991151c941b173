#include "store/digit_code.h"

#include <algorithm>

#include "store/value_code.h"

namespace tarvok::store {
namespace {

constexpr int kNoNibble = -1;

int NibbleOf(char symbol, DialSymbols symbols) {
  if (symbol == '0') return 0xA;
  if (symbol >= '1' && symbol <= '9') return symbol - '0';
  if (symbol >= 'A' && symbol <= 'F') return symbol - 'A' + 10;
  if (symbol >= 'a' && symbol <= 'f') return symbol - 'a' + 10;
  if (symbols == DialSymbols::kDigitsStarHash && symbol == '*') return 0xB;
  if (symbols == DialSymbols::kDigitsStarHash && symbol == '#') return 0xC;
  return kNoNibble;
}

bool IsSkipped(std::uint8_t byte, SkippedBytes skipped) {
  if (byte == 0) return skipped == SkippedBytes::kZero || skipped == SkippedBytes::kZeroAnd255;
  return byte == 255 && (skipped == SkippedBytes::k255 || skipped == SkippedBytes::kZeroAnd255);
}

}  // namespace

bool PackDigits(std::string_view number, DialSymbols symbols, std::span<std::uint8_t> field) {
  std::fill(field.begin(), field.end(), std::uint8_t{0});
  const std::string_view used = number.substr(0, field.size() * 2);
  for (std::size_t i = 0; i < used.size(); ++i) {
    const int nibble = NibbleOf(used[i], symbols);
    if (nibble == kNoNibble) return false;
    field[i / 2] = static_cast<std::uint8_t>(field[i / 2] | (i % 2 == 0 ? nibble << 4 : nibble));
  }
  return true;
}

char SymbolOf(char hex, DialSymbols symbols) {
  if (hex == 'A') return '0';
  if (symbols == DialSymbols::kDigitsStarHash && hex == 'B') return '*';
  if (symbols == DialSymbols::kDigitsStarHash && hex == 'C') return '#';
  return hex;
}

void AppendDigits(std::span<const std::uint8_t> field, DialSymbols symbols, SkippedBytes skipped,
                  std::string& text) {
  const std::size_t start = text.size();
  for (const std::uint8_t byte : field) {
    if (!IsSkipped(byte, skipped)) text += DecToHex(byte);
  }
  text.erase(std::min(text.find('0', start), text.size()));
  for (std::size_t i = start; i < text.size(); ++i) text[i] = SymbolOf(text[i], symbols);
}

std::string UnpackDigits(std::span<const std::uint8_t> field, DialSymbols symbols, SkippedBytes skipped) {
  std::string number;
  AppendDigits(field, symbols, skipped, number);
  return number;
}

}  // namespace tarvok::store
