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

inline constexpr int kPasswordLevels = 3;

/**
 * The exchange's passwords. Level 1 may do everything, level 2 all but the configuration, level 3 the mini
 * bar alone. As long as no level has a password, every password passes.
 */
class LevelPasswords {
 public:
  /** `level` from 1 to 3. */
  void Set(int level, const PackedPassword& password) { At(level) = password; }
  const std::optional<PackedPassword>& Get(int level) const {
    return levels_[static_cast<std::size_t>(level - 1)];
  }
  /** Whether that password may put the exchange into that mode. */
  bool Permits(std::span<const std::uint8_t> password, ExchangeMode mode) const;

  /** Lines "LEVEL HEX", such as "1 1234FF". */
  std::string Text() const;
  /** Reads Text; false if it is none. */
  [[nodiscard]] bool Read(std::string_view text);

 private:
  std::optional<PackedPassword>& At(int level) { return levels_[static_cast<std::size_t>(level - 1)]; }

  std::array<std::optional<PackedPassword>, kPasswordLevels> levels_;
};

}  // namespace tarvok::exchange
