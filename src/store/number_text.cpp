#include "store/number_text.h"

#include <algorithm>

namespace tarvok::store {
namespace {

constexpr std::int64_t kLimit = 1'000'000'000'000'000;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

void SkipBlanks(std::string_view& text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
}

/** Reads a decimal text with `places` digits after the point; the rest is rounded half to even. */
NumberText ReadScaled(std::string_view text, int places) {
  SkipBlanks(text);
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  NumberText number;
  int kept = 0;
  bool after_point = false;
  int first_dropped = -1;
  bool rest_dropped = false;
  for (const char c : text) {
    if (c == '.' && !after_point) {
      after_point = true;
    } else if (!IsDigit(c)) {
      break;
    } else {
      number.is_number = true;
      if (!after_point || kept < places) {
        number.value = std::min(kLimit, number.value * 10 + (c - '0'));
        kept += after_point ? 1 : 0;
      } else if (first_dropped < 0) {
        first_dropped = c - '0';
      } else if (c != '0') {
        rest_dropped = true;
      }
    }
  }
  for (; kept < places; ++kept) number.value = std::min(kLimit, number.value * 10);
  const bool half = first_dropped == 5 && !rest_dropped;
  if (first_dropped > 5 || (first_dropped == 5 && !half) || (half && number.value % 2 == 1))
    number.value = std::min(kLimit, number.value + 1);
  if (negative) number.value = -number.value;
  return number;
}

std::string WithFraction(std::int64_t value, std::int64_t unit, int places) {
  const bool negative = value < 0;
  const std::int64_t size = negative ? -value : value;
  return (negative ? "-" : "") + std::to_string(size / unit) + "." + Padded(size % unit, places);
}

}  // namespace

std::string_view Trim(std::string_view text) {
  SkipBlanks(text);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

NumberText ReadNumber(std::string_view text) {
  return ReadScaled(text, 0);
}

std::int64_t ValHundredths(std::string_view text) {
  return ReadScaled(text, 2).value;
}

std::int64_t ValHex(std::string_view text) {
  SkipBlanks(text);
  if (text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h')) text.remove_prefix(2);
  std::int64_t value = 0;
  for (const char c : text) {
    const int digit = HexDigit(c);
    if (digit < 0) break;
    value = std::min(kLimit, value * 16 + digit);
  }
  return value;
}

std::string Padded(std::int64_t value, int width) {
  std::string digits = std::to_string(value < 0 ? -value : value);
  if (digits.size() < static_cast<std::size_t>(width)) {
    digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
  }
  return value < 0 ? "-" + digits : digits;
}

std::string FormatHundredths(std::int64_t hundredths) {
  return WithFraction(hundredths, 100, 2);
}

std::string PlainHundredths(std::int64_t hundredths) {
  std::string text = FormatHundredths(hundredths);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string FormatThousandths(std::int64_t thousandths) {
  return WithFraction(thousandths, 1000, 3);
}

std::string FormatGrouped(std::int64_t hundredths) {
  std::string text = FormatHundredths(hundredths);
  if (text.starts_with("0.")) return text.substr(1);
  for (std::size_t at = text.find('.'); at > 3 && IsDigit(text[at - 4]);) text.insert(at -= 3, ",");
  return text;
}

}  // namespace tarvok::store
