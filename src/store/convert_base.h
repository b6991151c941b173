#pragma once

#include <string>
#include <string_view>

namespace tarvok::store {

/**
 * Converts a number of any length from one base to another, exactly.
 *
 * Bases run from 2 to 36; digits are "0" to "9" and "A" to "Z" in either case. Digits after `point` are a
 * fraction; its conversion stops when it is exact, or after as many digits as the precision of the source
 * requires. Leading zeros are dropped, as are trailing zeros of the fraction and a point at the very end; if
 * nothing is left, the result is "0". Returns "" for a base out of range, an empty text, or a character that
 * is not a digit of the base.
 *
 * No program needs it today; the set of number conversions is complete on purpose.
 */
std::string ConvertBase(std::string_view digits, int from, int to, char point);

}  // namespace tarvok::store
