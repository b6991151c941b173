#include "link/password_code.h"

#include <algorithm>
#include <string>

#include "store/number_text.h"

namespace tarvok::link {

std::optional<PackedPassword> PackPassword(std::string_view digits) {
  const bool all_digits =
      std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (digits.empty() || digits.size() > kMostPasswordDigits || !all_digits) return std::nullopt;
  std::string nibbles = digits.size() % 2 == 0 ? std::string() : "F";
  nibbles += digits;
  std::replace(nibbles.begin(), nibbles.end(), '0', 'A');
  nibbles.resize(kMostPasswordDigits, 'F');
  PackedPassword packed;
  for (std::size_t i = 0; i < packed.size(); ++i) {
    packed[i] = static_cast<std::uint8_t>(ValHex(nibbles.substr(2 * i, 2)));
  }
  return packed;
}

void Wipe(std::span<std::uint8_t> bytes) {
  volatile std::uint8_t* at = bytes.data();
  for (std::size_t left = bytes.size(); left > 0; --left) *at++ = 0;
}

void Wipe(std::string& text) {
  text.resize(text.capacity());  // deleted characters remain in memory after the end
  Wipe({reinterpret_cast<std::uint8_t*>(text.data()), text.size()});
  text.clear();
}

}  // namespace tarvok::link
