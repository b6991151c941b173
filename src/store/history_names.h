#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvok::store {

inline constexpr std::size_t kHashDigits = 16;

/**
 * A hash of 16 hexadecimal digits. Where a collision would do harm, equal hashes are followed by a
 * byte-by-byte comparison.
 */
std::string HashOf(std::string_view bytes);

/** True for a character that every system accepts in a file name and that is not special to any shell. */
bool IsPlainInName(char c);

/**
 * A file or folder name: the name that the user knows, shortened and reduced to plain characters, and a hash
 * of the text that is unique to it.
 */
std::string NameWithHash(std::string_view shown, std::string_view whole);

}  // namespace tarvok::store
