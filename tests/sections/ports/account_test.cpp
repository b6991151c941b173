#include "sections/ports/account.h"

#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

constexpr int kSize = 5500;
constexpr int kRecord = 11;
constexpr int kLast = 199 * kRecord;

TEST(Account, ImageOfARow) {
  const std::string error = "section Account, row 200, field ";
  const std::pair<std::string, std::string> cases[] = {
      {"", "FF*11"},
      {"F|F|F|F|F|F", "00*5 FF FF FF FF FF FF"},
      {"120304|1099|500|20|32|300", "12 A3 A4 1A 99 F3 01 13 1F 2C 01"},
      {"1234567|12345|001|0|x|0", "12 34 56 12 34 00 00 FF FF 00 00"},
      // The number counts only beside both account and password.
      {"1234|F|7|1|1|F", "12 34 00 00 00 FE FF 00 00 FF FF"},
      {"F|12|7|F|F|F", "00*3 12 00 FE FF FF FF FF FF"},
      {"F|F|7|F|F|F", "00*5 FE FF FF FF FF FF"},
      {"1|F|F|F|F|F", "10 00*4 FE FF FF FF FF FF"},
      {"1|2|F", "10 00 00 20 00 FE FF FF FF FF FF"},
      {"1|2|0|F|F|F", "10 00 00 20 00 FE FF FF FF FF FF"},
      {"1*|2|3|4|5|6", error + "Account: value 1*" + kNotDialled},
      {"1|2|65536|4|5|6", error + "Number: value 65536" + kTooLarge},
      {"1|2|3|4|5|-1", error + "Time (sec): value -1" + kNegative},
  };
  for (const auto& [row, image] : cases)
    ExpectImage(EncodeAccount, kSize, "[Account]\n200=" + row, kLast, image);
  ExpectImage(EncodeAccount, kSize, "[Account]\n201=1|2|3|4|5|6", 0, "FF*2200 00*3300");
}

TEST(Account, RowOfAnImage) {
  ExpectRows(DecodeAccount, {"Account", "200", kSize, kLast},
             {{"", "FF*11"},
              {"", "00*5 FF FF FF FF FF FF"},
              {"120304|1099|500|20|32|300", "12 A3 A4 1A 99 F3 01 13 1F 2C 01"},
              {"123|45|F|F|F|0", "12 00 30 00 45 FE FF FF FF 00 00"},
              // A high byte of 255 unsets number and time whatever the low one says.
              {"05|10|F|255|1|F", "0A FF 05 FF 1A 00 FF FE 00 05 FF"},
              {"F|F|1|1|1|0", "00*11"}});
  EXPECT_EQ(Decoded(DecodeAccount, Hex("10")).Get("Account", "001"), "1|F|1|1|1|0");
}

}  // namespace
}  // namespace tarvok::test
