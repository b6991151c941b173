#include "sections/system/pabx_mode.h"

#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

TEST(PabxMode, Image) {
  const std::string error = "section SystemConfig, row Pbx, field ";
  const std::pair<std::string, std::string> cases[] = {
      {"", "00*11 FF*9"},
      // Each field with a value of its own shows that none stands in its order and that the seventh is left
      // out.
      {"1|2|3|4|5|6|7|8|9|10|1|1|1|1|1|0|500|1|1|20",
       "00 01 02 09 04 03 05 06 14 08 0A 01 01 01 02 01 F3 01 01 01"},
      {"F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F", "00*16 FF FF 00 00"},
      {"0|0|0|0|0|0|1|0|0|F|2|2|2|1|2|1|0|2|01|0", "00*14 01 00 FF FF 00 01"},
      {"0|0|0|0|0|0|0|0|0|254|0|0|0|1|0|F|001|0|0|0", "00*10 FE 00*3 01 00 00 00 00 00"},
      {"1", "00 01 00*14 FF FF 00 00"},
      {"256", error + "Auto Print Call Record: value 256" + kTooLarge},
      {"0|-1", error + "Check Credit: value -1" + kNegative},
  };
  for (const auto& [value, image] : cases)
    ExpectImage(EncodePabxMode, 20, "[SystemConfig]\nPbx=" + value, 0, image);
}

TEST(PabxMode, ValueOfAnImage) {
  const std::pair<std::string, std::string> cases[] = {
      {"63 01 02 09 04 03 05 06 14 08 0A 0B 0C 0D 00 0F 00 00 01 02",
       "1|2|3|4|5|6|20|8|9|10|11|12|13|0|15|1|0|1|0|0"},
      {"00*8 01 00*5 01 00 05 00 00 01", "0|0|0|0|0|0|1|0|0|0|0|0|0|1|0|1|0|0|1|1"},
      {"00*14 02 00 00 00 00 00", "0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|001|0|0|0"},
      {"00*14 02 00 F3 01 00 00", "0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|500|0|0|0"},
      {"00*14 02 00 F4 01 00 00", "0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|0|0|0|0"},
      {"FF*20", "F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|1|0|0|0|0"},
      {"", "0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|0|0"},
  };
  for (const auto& [image, value] : cases) {
    const IniText project = Decoded(DecodePabxMode, Hex(image), "[SystemConfig]\nPbx=old\nport=3\n");
    EXPECT_EQ(project.Get("SystemConfig", "Pbx"), value) << image;
    EXPECT_EQ(project.Keys("SystemConfig").size(), 2U);
  }
}

}  // namespace
}  // namespace tarvok::test
