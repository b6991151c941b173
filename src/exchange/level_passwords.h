#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "exchange/uses.h"
#include "link/message.h"
#include "link/password_code.h"

namespace tarvok::exchange {

/**
 * The exchange's passwords. Level 1 permits everything, level 2 everything but the configuration, level 3
 * only the mini bar. As long as no level has a password, every password is accepted.
 */
class LevelPasswords {
 public:
  /** `level` from 1 to 3. */
  void Set(int level, const PackedPassword& password) { At(level) = password; }
  const std::optional<PackedPassword>& Get(int level) const {
    return levels_[static_cast<std::size_t>(level - 1)];
  }
  /** True if the password permits the mode. */
  bool Permits(std::span<const std::uint8_t> password, ExchangeMode mode) const;

  /** Lines "LEVEL HEX", such as "1 1234FF". */
  std::string Text() const;
  /** Parses Text; false if it is invalid. */
  [[nodiscard]] bool Read(std::string_view text);

 private:
  std::optional<PackedPassword>& At(int level) { return levels_[static_cast<std::size_t>(level - 1)]; }

  std::array<std::optional<PackedPassword>, kPasswordLevels> levels_;
};

}  // namespace tarvok::exchange
