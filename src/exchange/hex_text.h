#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "exchange/uses.h"
#include "link/frame.h"

namespace tarvok::exchange {

/** Two upper-case hexadecimal digits per byte, without separators. */
std::string HexText(std::span<const std::uint8_t> bytes);
/** Parses such a text; blanks and line ends between bytes are skipped. nullopt for anything else. */
std::optional<Bytes> ParseHex(std::string_view text);

}  // namespace tarvok::exchange
