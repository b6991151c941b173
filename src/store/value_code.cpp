#include "store/value_code.h"

#include <algorithm>

namespace tarvok::store {
namespace {

std::string InBase(std::uint64_t value, unsigned base) {
  std::string text;
  for (; value != 0; value /= base) text += "0123456789ABCDEF"[value % base];
  std::reverse(text.begin(), text.end());
  return text;
}

}  // namespace

std::string DecToHex(std::uint64_t value) {
  return value == 0 ? "0" : InBase(value, 16);
}

std::string DecToBin(std::uint64_t value) {
  return value == 0 ? "0000" : InBase(value, 2);
}

std::uint64_t BinToDec(std::string_view text) {
  std::uint64_t value = 0;
  for (const char c : text) value = value * 2 + (c == '1' ? 1 : 0);
  return value;
}

}  // namespace tarvok::store
