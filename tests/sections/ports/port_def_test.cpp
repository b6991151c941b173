#include "sections/ports/port_def.h"

#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

constexpr int kSize = 27500;
constexpr int kRecord = 55;

TEST(PortDef, ImageOfARow) {
  const std::pair<std::string, std::string> cases[] = {
      // A row that is there although nothing is set: zeros where an unused row has 255.
      {"F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F",
       "FF FF 00 FF FF FF FF FF FF FF FF FF 00 00 FF 00*30 00 00 00 FF FF FF FF 00 00 FF"},
      {"3|4|1|2|1|7|001|012|1|305|F|F|F|F|20|300|1234|F|1|2|1|3|1",
       "02 03 01 FF FF 01 00 06 00 0B 2B 01 03 00 14 3A 50 00*4 00*24 00 12 34 00 00 02 01 11 01 FF"},
      {"16|60|14|20|32|99|F|F|0|12345678901234|F|F|F|100|255|001|103|0|0|0|F|F|F",
       "0F 3B 0E FF FF 13 1F 62 FF FF 00 00 22 00 FF 12 34 56 78 9A 12 00*18 1A A0 00*4 00 1A 30 FF FF 00 FF "
       "00 00 FF"},
      {"1|1|1|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|2|F",
       "00 00 01 FF FF FF FF FF FF FF FF FF 00 00 FF 00*30 00 00 00 00 00 00 00 10 00 FF"},
      {"1|1|1", "00 00 01 FF FF FF FF FF FF FF FF FF 00 00 FF 00*30 00 00 00 FF FF FF FF 00 00 FF"},
  };
  for (const auto& [row, image] : cases)
    ExpectImage(EncodePortDef, kSize, "[port_def]\n002= " + row, kRecord, image);
}

TEST(PortDef, BossMarksTheLowestRowThatNamesThePort) {
  const ImageWriter image = Encoded(
      EncodePortDef, kSize, "[BOSS]\n03=002|003\n05=002|F\n07=F|002\n[Port_Def]\n002=1|1|1\n003=1|2|1\n");
  EXPECT_EQ(image.bytes()[kRecord + 54], 3);
  EXPECT_EQ(image.bytes()[2 * kRecord + 54], 255);
}

TEST(PortDef, ErrorsNameTheField) {
  const Place row = {"Port_Def", "001", kSize, 0};
  ExpectErrors(EncodePortDef, row,
               {{"256|1|1", "Card: value 256"},
                {"1|1|-1", "Type: value -1", "is negative"},
                {"1|1|1|F|F|F|F|F|255|1", "DND: value 255"},
                {"1|1|1|F|F|F|F|F|F|12x", "Disa: value 12x", "holds a character that can't be dialled"},
                {"1|1|1|F|F|F|F|F|F|F|F|F|F|F|F|65536", "Number: value 65536"}});
  for (const char* good : {"255|1|1", "-5|1|1", "1|1|1|F|F|F|F|F|F|123456789012x"})
    EXPECT_EQ(Encoded(EncodePortDef, kSize, row.Project(good)).error(), "") << good;
}

TEST(PortDef, RowOfAnImage) {
  ExpectRows(
      DecodePortDef, {"Port_Def", "500", kSize, 499 * kRecord},
      {{"3|4|1|2|1|7|001|012|1|305|F|F|F|F|20|300|1234|0|1|2|1|3|1",
        "02 03 01 FF FF 01 00 06 00 0B 2B 01 03 00 14 3A 50 00*4 00*24 00 12 34 00 00 02 01 11 01 FF"},
       // A high flag byte of 255 sets every flag; digits then come from the record, where bytes of 255 are
       // none.
       {"1|1|F|F|F|F|F|F|1|F|05|F|F|F|F|F|10|F|F|F|F|2|F",
        "00 00 00 00 00 FF FF FF FF FF FF FF 00 FF FF FF*6 0A 05 00 00 00 00 00*18 00 FF 1A FF FF FF FF 10 "
        "02 "
        "00"},
       {"", "FF FF FF 01 02 03 04 05 06 07 08 00 00 00 00*41"},
       {"", "FF FF 00 00*52"},
       {"F|F|5|1|1|1|001|001|0|F|F|F|F|F|0|001|F|0|1|0|0|0|F", "FF FF 05 00*52"}});
  EXPECT_EQ(Decoded(DecodePortDef, {}).Get("Port_Def", "Now"), "500");
}

}  // namespace
}  // namespace tarvok::test
