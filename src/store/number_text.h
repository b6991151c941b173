#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvok::store {

/** The text without leading and trailing blanks; tabs stay. */
std::string_view Trim(std::string_view text);

/** What ReadNumber found in a text. */
struct NumberText {
  std::int64_t value = 0;  // rounded half to even; between -10^15 and 10^15
  bool is_number = false;  // there was at least one digit
};

/**
 * Reads a decimal number: skips blanks, then takes an optional sign, digits and one "."; ends at the first
 * other character. Returns 0 if there are no digits. A fraction is rounded half to even.
 */
NumberText ReadNumber(std::string_view text);
inline std::int64_t Val(std::string_view text) {
  return ReadNumber(text).value;
}

/** Reads a decimal number in hundredths, rounded half to even on the decimal text: "0.29" is 29. */
std::int64_t ValHundredths(std::string_view text);

/**
 * Reads leading hexadecimal digits, after blanks and an optional "&H"; 0 if there are none. At most 10^15.
 */
std::int64_t ValHex(std::string_view text);

/** Decimal, padded with zeros to `width` digits and never cut: 7 becomes "007", 1000 stays "1000". */
std::string Padded(std::int64_t value, int width);

/** Hundredths in the pattern "##0.00": 50 is "0.50", 106 is "1.06". */
std::string FormatHundredths(std::int64_t hundredths);
/** Hundredths as a plain number: 110 is "1.1", 100 is "1". */
std::string PlainHundredths(std::int64_t hundredths);
/** Hundredths in the pattern "#,###.00": 50 is ".50", 123456 is "1,234.56". */
std::string FormatGrouped(std::int64_t hundredths);
/** Thousandths in the pattern "##0.000": 0 is "0.000", 1042 is "1.042". */
std::string FormatThousandths(std::int64_t thousandths);

}  // namespace tarvok::store
