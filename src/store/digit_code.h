#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarvok::store {

/** Which symbols a section's telephone numbers may hold. */
enum class DialSymbols { kDigits, kDigitsStarHash };

/** Which bytes of a packed number are not read. */
enum class SkippedBytes { kNone, k255, kZero, kZeroAnd255 };

/**
 * Packs a telephone number two symbols to a byte, the first in the high half: "1" to "9" as themselves, "0"
 * as A, "*" as B and "#" as C where the section allows them; letters A to F pass as nibbles. An odd length is
 * closed by a nibble 0, the rest of the field is 0, and what does not fit is cut. False if a used character
 * is no hexadecimal digit; the field is then in no defined state.
 */
[[nodiscard]] bool PackDigits(std::string_view number, DialSymbols symbols, std::span<std::uint8_t> field);

/**
 * Unpacks a telephone number: the bytes' hexadecimal texts without leading zero, joined, cut in front of the
 * first "0", and only then A made "0" (B "*", C "#"). A byte 0 that is not skipped reads "0" and so ends the
 * number.
 */
std::string UnpackDigits(std::span<const std::uint8_t> field, DialSymbols symbols, SkippedBytes skipped);
/** The same at the end of a text. */
void AppendDigits(std::span<const std::uint8_t> field, DialSymbols symbols, SkippedBytes skipped,
                  std::string& text);

/** What a hexadecimal character of the joined text stands for. */
char SymbolOf(char hex, DialSymbols symbols);

}  // namespace tarvok::store
