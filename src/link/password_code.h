#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "link/uses.h"

namespace tarvok::link {

/** A password as it travels: three bytes. */
using PackedPassword = std::array<std::uint8_t, 3>;

/** Most digits of a password. */
inline constexpr std::size_t kMostPasswordDigits = 6;

/** Packs one to six digits: "0" as A, an odd count led by F, two digits a byte, FF behind the end. nullopt for anything
 * else. */
std::optional<PackedPassword> PackPassword(std::string_view digits);

/** Zeros over bytes that hold, or may hold, a password, in a way that no optimiser leaves out. */
void Wipe(std::span<std::uint8_t> bytes);
/** The same for a text, which is empty afterwards. */
void Wipe(std::string& text);

}  // namespace tarvok::link
