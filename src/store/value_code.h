#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvok::store {

/** Upper-case hexadecimal without leading zeros; 0 gives "0". */
std::string DecToHex(std::uint64_t value);

/** Binary text, highest bit first, without padding; but 0 gives "0000". No program needs it today, like
 * ConvertBase. */
std::string DecToBin(std::uint64_t value);

/**
 * The value of a binary text whose last character is bit 0. Characters other than "1" count as 0; bits above
 * the 63rd are lost.
 */
std::uint64_t BinToDec(std::string_view text);

}  // namespace tarvok::store
