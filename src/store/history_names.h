#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvok::store {

inline constexpr std::size_t kHashDigits = 16;

/** 16 hexadecimal digits that tell contents apart. Where a mistake would cost something, equal ones are
 * compared byte by byte as well. */
std::string HashOf(std::string_view bytes);

/** A letter that every system takes in the name of a file, and no shell takes for anything else. */
bool IsPlainInName(char c);

/** A name of a file or folder: what a person knows the thing by, cut and in plain letters, and the hash of
 * what tells it from all others. */
std::string NameWithHash(std::string_view shown, std::string_view whole);

}  // namespace tarvok::store
