#pragma once

#include <string>
#include <string_view>

namespace tarvok::store {

/**
 * Converts a number of any length from one base to another, exactly, without machine arithmetic on the whole.
 *
 * Bases run from 2 to 36; digits are "0" to "9" and "A" to "Z", case ignored. Digits behind `point` are a
 * fraction; its conversion stops where it ends exactly or after as many digits as the source's precision
 * needs. Leading zeros are cut, and behind a point trailing ones; nothing left is "0"; a point at the very
 * end is cut. A base out of range, an empty text or a character that is no digit of the base gives "".
 */
std::string ConvertBase(std::string_view digits, int from, int to, char point);

}  // namespace tarvok::store
