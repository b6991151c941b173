// Any text as the value of a key: its fields are the same however they are read, and numbers, digits and
// codes in it stay within their limits.

#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/demand.h"
#include "store/convert_base.h"
#include "store/digit_code.h"
#include "store/field_list.h"
#include "store/number_text.h"
#include "store/value_code.h"
#include "tests/floors.h"

namespace {

using namespace tarvok;
using namespace tarvok::fuzz;

void JudgeFields(const std::string& text) {
  const FieldList fields(text);
  std::vector<std::string_view> each;
  ForEachField(text, [&](std::string_view field) { each.push_back(field); });
  Demand(each.size() == static_cast<std::size_t>(fields.count()));
  for (int n = -1; n <= fields.count() + 1; ++n) {
    const bool there = n >= 1 && n <= fields.count();
    Demand(fields[n] == GetField(text, n));
    Demand(fields[n] == (there ? each[static_cast<std::size_t>(n) - 1] : std::string_view()));
    Demand(SetField(text, n, " x ").size() <= text.size() + 1);
  }
}

void JudgeNumbers(const std::string& text) {
  constexpr std::int64_t kMost = 1'000'000'000'000'000;
  for (const std::int64_t value : {Val(text), ValHex(text)}) Demand(value >= -kMost && value <= kMost);
  Demand(Val(Padded(Val(text), 3)) == Val(text));
  if (const std::int64_t hundredths = ValHundredths(text); hundredths >= 0 && hundredths <= kMost) {
    Demand(ValHundredths(FormatHundredths(hundredths)) == hundredths);
  }
  Demand(BinToDec(DecToBin(BinToDec(text))) == BinToDec(text));
}

void JudgeCodes(const std::string& text) {
  for (const DialSymbols symbols : {DialSymbols::kDigits, DialSymbols::kDigitsStarHash}) {
    std::uint8_t packed[16] = {};
    if (!PackDigits(text, symbols, packed)) continue;
    for (const SkippedBytes skipped : {SkippedBytes::kNone, SkippedBytes::k255, SkippedBytes::kZeroAnd255}) {
      Demand(UnpackDigits(packed, symbols, skipped).size() <= 2 * sizeof packed);
    }
  }
  // The cost grows with the square of the length, and the tool has no longer numbers.
  constexpr std::size_t kLongNumber = 40;
  if (text.size() > kLongNumber) return;
  const std::string binary = ConvertBase(text, 16, 2, '.');
  if (text.find('.') == std::string::npos)
    Demand(ConvertBase(ConvertBase(binary, 2, 16, '.'), 16, 2, '.') == binary);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  JudgeFields(text);
  JudgeNumbers(text);
  JudgeCodes(text);
  return 0;
}
