#include <vector>

#include <gtest/gtest.h>

#include "store/convert_base.h"
#include "store/digit_code.h"
#include "store/field_list.h"
#include "store/number_text.h"
#include "store/value_code.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(FieldList, GetFieldSkipsEmptyFields) {
  const std::tuple<const char*, int, const char*> cases[] = {
      {"a||c", 2, "c"}, {"|a|", 1, "a"}, {"a|b|", 3, ""}, {"", 1, ""},   {"a|b", 2, "b"},
      {"a|b", 0, ""},   {"a", -1, ""},   {"|||", 1, ""},  {"a", 1, "a"}, {"F|F|0|0|", 4, "0"}};
  for (const auto& [list, n, field] : cases) {
    EXPECT_EQ(GetField(list, n), field) << list << " " << n;
    EXPECT_EQ(FieldList(list)[n], field) << list << " " << n;
  }
  std::string many;
  for (int i = 1; i <= 100; ++i) many += std::to_string(i) + "||";
  const FieldList list(many);
  EXPECT_EQ(list.count(), 100);
  EXPECT_EQ(list[64], "64");
  EXPECT_EQ(list[65], "65");
  EXPECT_EQ(list[100], "100");
  EXPECT_EQ(list[101], "");
}

TEST(FieldList, SetFieldCountsEveryPipe) {
  const std::tuple<const char*, int, const char*, const char*> cases[] = {
      {"a||c|", 2, " x ", "a|x|c|"}, {"a|b", 3, "x", "a|b"}, {"a|b|", 3, "x", "a|b|x"},
      {"a|b|", 2, "x", "a|x|"},      {"a|b", 2, "x", "a|x"}, {"a|b", 1, "x", "x|b"},
      {"a", 1, " x ", "x"},          {"a|b", 0, "x", "a|b"}, {"", 2, "x", ""}};
  for (const auto& [list, n, value, result] : cases)
    EXPECT_EQ(SetField(list, n, value), result) << list << " " << n;
}

TEST(NumberText, ReadsTheLeadingNumber) {
  const std::tuple<const char*, std::int64_t, bool> cases[] = {
      {"12", 12, true},  {"  -3x", -3, true},
      {"", 0, false},    {"x", 0, false},
      {"1.5", 2, true},  {"2.5", 2, true},
      {"2.51", 3, true}, {"-1.5", -2, true},
      {"1e3", 1, true},  {"&H10", 0, false},
      {".5", 0, true},   {"1.2.3", 1, true},
      {"+7", 7, true},   {"\t5", 0, false},
      {"007", 7, true},  {"99999999999999999999999", 1'000'000'000'000'000, true}};
  for (const auto& [text, value, is_number] : cases) {
    EXPECT_EQ(ReadNumber(text).value, value) << text;
    EXPECT_EQ(ReadNumber(text).is_number, is_number) << text;
  }
  EXPECT_EQ(ValHundredths("0.29"), 29);
  EXPECT_EQ(ValHundredths("1.005"), 100);
  EXPECT_EQ(ValHundredths("1.015"), 102);
  EXPECT_EQ(ValHundredths("655.35"), 65535);
  EXPECT_EQ(ValHundredths("7"), 700);
  EXPECT_EQ(ValHex("&H1Fx"), 31);
  EXPECT_EQ(ValHex("ff"), 255);
  EXPECT_EQ(ValHex("x"), 0);
}

TEST(NumberText, Formats) {
  EXPECT_EQ(Padded(7, 3), "007");
  EXPECT_EQ(Padded(1000, 3), "1000");
  EXPECT_EQ(FormatGrouped(50), ".50");
  EXPECT_EQ(FormatGrouped(106), "1.06");
  EXPECT_EQ(FormatGrouped(123456789), "1,234,567.89");
  EXPECT_EQ(FormatGrouped(99999), "999.99");
  EXPECT_EQ(FormatHundredths(50), "0.50");
  EXPECT_EQ(FormatThousandths(1042), "1.042");
}

TEST(ValueCode, Examples) {
  EXPECT_EQ(DecToHex(0), "0");
  EXPECT_EQ(DecToHex(0x0A), "A");
  EXPECT_EQ(DecToHex(0x1F0), "1F0");
  EXPECT_EQ(DecToBin(0), "0000");
  EXPECT_EQ(DecToBin(1), "1");
  EXPECT_EQ(DecToBin(65535), std::string(16, '1'));
  EXPECT_EQ(BinToDec("1011"), 11U);
  EXPECT_EQ(BinToDec("1x1"), 5U);
  EXPECT_EQ(BinToDec(""), 0U);
}

TEST(ConvertBase, Examples) {
  const std::tuple<const char*, int, int, const char*> cases[] = {
      {"FF", 16, 2, "11111111"},
      {"ff", 16, 10, "255"},
      {"0", 10, 16, "0"},
      {"000", 2, 16, "0"},
      {"4294967295", 10, 16, "FFFFFFFF"},
      {"340282366920938463463374607431768211456", 10, 16, "100000000000000000000000000000000"},
      {"ZZ", 36, 10, "1295"},
      {"0.5", 10, 2, ".1"},
      {"A.8", 16, 10, "10.5"},
      {"12.", 10, 16, "C"},
      {"1.10", 10, 10, "1.1"},
      {"12", 2, 10, ""},
      {"", 10, 2, ""},
      {"1", 1, 2, ""},
      {"1", 2, 37, ""},
      {".", 10, 2, "0"}};
  for (const auto& [digits, from, to, result] : cases)
    EXPECT_EQ(ConvertBase(digits, from, to, '.'), result) << digits;
}

TEST(DigitCode, PacksAndUnpacks) {
  using Bytes = std::vector<std::uint8_t>;
  const auto pack = [](std::string_view number, std::size_t size, DialSymbols symbols) {
    Bytes field(size, 0x77);
    return PackDigits(number, symbols, field) ? field : Bytes{};
  };
  constexpr auto kPlain = DialSymbols::kDigits;
  constexpr auto kAll = DialSymbols::kDigitsStarHash;
  EXPECT_EQ(pack("1203", 3, kPlain), (Bytes{0x12, 0xA3, 0}));
  EXPECT_EQ(pack("125", 2, kPlain), (Bytes{0x12, 0x50}));
  EXPECT_EQ(pack("0", 1, kPlain), (Bytes{0xA0}));
  EXPECT_EQ(pack("*0#", 2, kAll), (Bytes{0xBA, 0xC0}));
  EXPECT_EQ(pack("*", 2, kPlain), Bytes{});
  EXPECT_EQ(pack("", 2, kPlain), (Bytes{0, 0}));
  EXPECT_EQ(pack("1234567x", 3, kPlain), (Bytes{0x12, 0x34, 0x56}));
  EXPECT_EQ(pack("Bf", 1, kPlain), (Bytes{0xBF}));

  const auto unpack = [](const Bytes& bytes, SkippedBytes skipped = SkippedBytes::kNone) {
    return UnpackDigits(bytes, kAll, skipped);
  };
  EXPECT_EQ(unpack({0x12, 0x00}), "12");
  EXPECT_EQ(unpack({0x10, 0x12}), "1");
  EXPECT_EQ(unpack({0xBA, 0xC0}), "*0#");
  EXPECT_EQ(unpack({0x12, 0x05, 0x30}), "1253");  // no leading zero
  EXPECT_EQ(unpack({0x00, 0x00}), "");
  EXPECT_EQ(unpack({0x00, 0x12}, SkippedBytes::kZeroAnd255), "12");
  EXPECT_EQ(unpack({0xFF, 0x12}, SkippedBytes::k255), "12");
  EXPECT_EQ(unpack({0xFF, 0xFF}, SkippedBytes::kZeroAnd255), "");
}

}  // namespace
}  // namespace tarvok::test
