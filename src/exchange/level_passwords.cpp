#include "exchange/level_passwords.h"

#include <algorithm>
#include <sstream>

#include "exchange/hex_text.h"

namespace tarvok::exchange {
namespace {

/** The highest level number, and so the weakest password, that permits the mode. */
int WeakestLevel(ExchangeMode mode) {
  switch (mode) {
    case ExchangeMode::kConfiguration:
      return 1;
    case ExchangeMode::kBilling:
      return 2;
    case ExchangeMode::kMiniBar:
      return 3;
    case ExchangeMode::kNormal:
      break;
  }
  return 0;
}

}  // namespace

bool LevelPasswords::Permits(std::span<const std::uint8_t> password, ExchangeMode mode) const {
  bool any_set = false;
  for (int level = 1; level <= kPasswordLevels; ++level) {
    const std::optional<PackedPassword>& known = Get(level);
    if (!known) continue;
    any_set = true;
    if (level <= WeakestLevel(mode) &&
        std::equal(known->begin(), known->end(), password.begin(), password.end())) {
      return true;
    }
  }
  return !any_set;
}

std::string LevelPasswords::Text() const {
  std::string text;
  for (int level = 1; level <= kPasswordLevels; ++level) {
    if (Get(level)) text += std::to_string(level) + ' ' + HexText(*Get(level)) + '\n';
  }
  return text;
}

bool LevelPasswords::Read(std::string_view text) {
  std::istringstream lines{std::string(text)};
  int level = 0;
  std::string hex;
  while (lines >> level >> hex) {
    const std::optional<Bytes> bytes = ParseHex(hex);
    if (level < 1 || level > kPasswordLevels || !bytes || bytes->size() != PackedPassword().size())
      return false;
    PackedPassword packed = {};
    std::copy(bytes->begin(), bytes->end(), packed.begin());
    Set(level, packed);
  }
  return lines.eof();
}

}  // namespace tarvok::exchange
