#include "store/history_names.h"

#include <algorithm>
#include <cstdint>

namespace tarvok::store {

std::string HashOf(std::string_view bytes) {
  constexpr std::uint64_t kStart = 0xCBF29CE484222325U;
  constexpr std::uint64_t kPrime = 0x100000001B3U;
  constexpr unsigned kHexadecimal = 16;
  std::uint64_t hash = kStart;
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
  std::string digits(kHashDigits, '0');
  for (std::size_t i = kHashDigits; i-- > 0; hash /= kHexadecimal) {
    digits[i] = "0123456789abcdef"[hash % kHexadecimal];
  }
  return digits;
}

bool IsPlainInName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
         c == '.';
}

std::string NameWithHash(std::string_view shown, std::string_view whole) {
  constexpr std::size_t kMostShown = 40;
  std::string name(shown.substr(0, kMostShown));
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !IsPlainInName(c); }, '_');
  return name.append("-").append(HashOf(whole));
}

}  // namespace tarvok::store
