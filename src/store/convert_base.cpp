#include "store/convert_base.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

namespace tarvok::store {
namespace {

using Digits = std::vector<std::uint8_t>;  // highest first

int DigitOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'Z') return c - 'A' + 10;
  if (c >= 'a' && c <= 'z') return c - 'a' + 10;
  return 36;
}

std::optional<Digits> Parse(std::string_view text, int base) {
  Digits digits;
  for (const char c : text) {
    const int digit = DigitOf(c);
    if (digit >= base) return std::nullopt;
    digits.push_back(static_cast<std::uint8_t>(digit));
  }
  return digits;
}

char Letter(int digit) {
  return "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[digit];
}

/** Divides the number by `to` in place and returns the remainder. */
int DivideInPlace(Digits& number, int from, int to) {
  int rest = 0;
  for (std::uint8_t& digit : number) {
    const int value = rest * from + digit;
    digit = static_cast<std::uint8_t>(value / to);
    rest = value % to;
  }
  number.erase(number.begin(),
               std::find_if(number.begin(), number.end(), [](std::uint8_t d) { return d != 0; }));
  return rest;
}

std::string WholePart(Digits number, int from, int to) {
  std::string result;
  while (!number.empty()) result += Letter(DivideInPlace(number, from, to));
  std::reverse(result.begin(), result.end());
  result.erase(0, result.find_first_not_of('0'));
  return result;
}

/** Multiplies the fraction by `to` in place and returns the whole part that comes out. */
int MultiplyInPlace(Digits& fraction, int from, int to) {
  int carry = 0;
  for (auto digit = fraction.rbegin(); digit != fraction.rend(); ++digit) {
    const int value = *digit * to + carry;
    *digit = static_cast<std::uint8_t>(value % from);
    carry = value / from;
  }
  while (!fraction.empty() && fraction.back() == 0) fraction.pop_back();
  return carry;
}

std::string FractionPart(Digits fraction, int from, int to) {
  // Either an n-digit fraction is exact in the other base or it never terminates there. This many digits
  // distinguish all n-digit fractions.
  const double needed = static_cast<double>(fraction.size()) * std::log(from) / std::log(to);
  // 36 is below 2^6, so a fraction that terminates does so within this many digits.
  const auto exact_in_powers = fraction.size() * 6;
  const auto limit = std::max(static_cast<std::size_t>(std::ceil(needed)) + 1, exact_in_powers);
  std::string result;
  while (!fraction.empty() && result.size() < limit) result += Letter(MultiplyInPlace(fraction, from, to));
  result.erase(result.find_last_not_of('0') + 1);
  return result;
}

}  // namespace

std::string ConvertBase(std::string_view digits, int from, int to, char point) {
  if (from < 2 || from > 36 || to < 2 || to > 36 || digits.empty()) return {};
  const std::size_t at = digits.find(point);
  const bool has_fraction = at != std::string_view::npos;
  const std::optional<Digits> whole = Parse(digits.substr(0, at), from);
  const std::optional<Digits> fraction = Parse(has_fraction ? digits.substr(at + 1) : "", from);
  if (!whole || !fraction) return {};

  std::string result = WholePart(*whole, from, to);
  const std::string fraction_text = FractionPart(*fraction, from, to);
  if (!fraction_text.empty()) result += point + fraction_text;
  return result.empty() ? "0" : result;
}

}  // namespace tarvok::store
