#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvok::store {

/** Upper-case hexadecimal without leading zeros; 0 gives "0". */
std::string DecToHex(std::uint64_t value);

/** Binary text, highest bit first and without padding, but 0 gives "0000". */
std::string DecToBin(std::uint64_t value);

/** The sum of the bits that are "1", the last character being bit 0. All other characters count as 0; bits
 * above the 63rd are not there. */
std::uint64_t BinToDec(std::string_view text);

}  // namespace tarvok::store
