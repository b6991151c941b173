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

/** A password in the form sent to the exchange: three bytes. */
using PackedPassword = std::array<std::uint8_t, 3>;

/** The exchange has a password for each level; level 1 permits everything. */
inline constexpr int kPasswordLevels = 3;
/** Maximum number of digits of a password. */
inline constexpr std::size_t kMostPasswordDigits = 6;

/**
 * Packs one to six digits, two per byte: "0" as A, an odd number preceded by F, the rest filled with FF.
 * Returns nullopt for anything else.
 */
std::optional<PackedPassword> PackPassword(std::string_view digits);

/** Overwrites bytes that may hold a password with zeros, in a way that the optimiser cannot remove. */
void Wipe(std::span<std::uint8_t> bytes);
/** Overwrites and empties a text. */
void Wipe(std::string& text);

}  // namespace tarvok::link
