#include "sections/ports/assign.h"

#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

constexpr int kSize = 4500;
constexpr int kRecord = 9;

TEST(Assign, ImageOfARow) {
  const std::string error = "section Assign, row 003, field ";
  const std::pair<std::string, std::string> cases[] = {
      {"", "FF*9"},
      {"F|F|F|F|F", "00*3 FF FF FF FF FF FF"},
      {"100|0|500|4|256", "1A A0 00 00 F3 01 04 FF 00"},
      {"1234567|7|0|0|F", "12 34 56 07 FF FF 00 FF FF"},
      {"5|0|F", "50 00 00 00 FF FF FF FF FF"},
      {"1x|0|1|1|1", error + "Number: value 1x" + kNotDialled},
      {"1|0|65536|1|1", error + "Value: value 65536" + kTooLarge},
      {"1|0|1|-1|1", error + "Company: value -1" + kNegative},
  };
  for (const auto& [row, image] : cases)
    ExpectImage(EncodeAssign, kSize, "[Assign]\nNow=3\n003=" + row, 2 * kRecord, image);
  // A row above "Now" is left out although it is there.
  ExpectImage(EncodeAssign, kSize, "[Assign]\nNow=1\n001=1|F|F|F|F\n002=1|0|1|1|1", 0, "10 00 00 FF*6 FF*9");
}

TEST(Assign, RowOfAnImage) {
  ExpectRows(DecodeAssign, {"Assign", "500", kSize, 499 * kRecord},
             {{"", "FF*9"},
              {"100|0|500|4|256", "1A A0 00 00 F3 01 04 FF 00"},
              // The value is padded by the type: a port, a hunt row, a call group.
              {"F|0|005|F|F", "FF*3 00 04 00 FF FF FF"},
              {"F|1|5|F|F", "FF*3 01 04 00 FF FF FF"},
              {"F|2|05|F|F", "FF*3 02 04 00 FF FF FF"},
              {"F|3|05|F|F", "FF*3 03 04 00 FF FF FF"},
              {"12|F|F|0|F", "12 00 34 FF 05 FF 00 00 FF"},
              {"1230|7|1|F|F", "FF 12 3A 07 00 00 FF FF FF"},
              // A byte 0 is a digit here, so a number of zeros is empty and not "F".
              {"|0|001|0|001", "00*9"}});
  EXPECT_EQ(Decoded(DecodeAssign, {}).Get("Assign", "Now"), "500");
}

}  // namespace
}  // namespace tarvok::test
