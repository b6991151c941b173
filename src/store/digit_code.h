#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarvok::store {

/** The symbols that a section's telephone numbers may contain. */
enum class DialSymbols { kDigits, kDigitsStarHash };

/** The bytes of a packed number that the decoder skips. */
enum class SkippedBytes { kNone, k255, kZero, kZeroAnd255 };

/**
 * Packs a telephone number, two symbols per byte, the first in the high nibble: "1" to "9" as they are, "0"
 * as A, and, where the section allows them, "*" as B and "#" as C. Letters A to F are packed as nibbles. An
 * odd length is padded with a nibble 0, the rest of the field is 0, and what does not fit is cut. Returns
 * false if a character that fits is not a hexadecimal digit; the contents of the field are then undefined.
 */
[[nodiscard]] bool PackDigits(std::string_view number, DialSymbols symbols, std::span<std::uint8_t> field);

/**
 * Unpacks a telephone number: joins the hexadecimal texts of the bytes (without leading zeros), cuts before
 * the first "0", and only then replaces A with "0" (B with "*", C with "#"). A byte 0 that is not skipped
 * reads as "0" and so ends the number.
 */
std::string UnpackDigits(std::span<const std::uint8_t> field, DialSymbols symbols, SkippedBytes skipped);
/** Like UnpackDigits, but appends to `text`. */
void AppendDigits(std::span<const std::uint8_t> field, DialSymbols symbols, SkippedBytes skipped,
                  std::string& text);

/** The dialled symbol that a hexadecimal character of the joined text stands for. */
char SymbolOf(char hex, DialSymbols symbols);

}  // namespace tarvok::store
