#include "sections/ports/hunt_group.h"

#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

constexpr int kSize = 1040;
constexpr int kPool = 40;

TEST(HuntGroup, ImageOfGroups) {
  const std::string full = "02=" + Repeated("001|", 499);
  const std::pair<std::string, std::string> cases[] = {
      {"", "00*40 FF*1000"},
      {"01=001|002|500\n02=\n03=300|256",
       "03 00 03 00 " + Repeated("05 00 ", 18) + "00 00 01 00 F3 01 2B 01 FF 00 FF*990"},
      // A lone member has no pipe. What is no number, "F", 0 or nothing at all is no member.
      {"20=007", "00*38 01 00 06 00 FF*998"},
      {"20=|F|0||x|-3|008|", "00*38 01 00 07 00 FF*998"},
      {"21=007\n1=007\nNow=9", "00*40 FF*1000"},
      {full + "\n05=400", "00 00 F3 01 F3 01 F3 01 " + Repeated("F4 01 ", 16) + "00*998 8F 01"},
      {full + "\n05=400|401",
       "section HuntGroup, row 05, field Member: value 401 has no place in the pool that "
       "all groups share"},
      {"05=65536", "section HuntGroup, row 05, field Member: value 65536" + kTooLarge},
  };
  for (const auto& [rows, image] : cases)
    ExpectImage(EncodeHuntGroup, kSize, "[HuntGroup]\n" + rows, 0, image);
}

TEST(HuntGroup, GroupsOfAnImage) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"03 00 03 00 05 00*33 05 00", "00 00 01 00 F3 01 2B 01 FF 00",
       "01=001|002|500\n02=\n03=300|256\nNow=5\n"},
      {"01 00 00*38", "06 00", "01=007\n02=\n03=\nNow=0\n"},
      // Unset slots below a total are skipped; a high byte of 255 alone unsets none.
      {"04 00*37 04 00", "FF FF 02 00 FF FF 05 FF", "01=003|65286\n02=\n03=\nNow=4\n"},
      // A total that falls back gives an empty group, one beyond the pool ends with the pool.
      {"02 00 01 00 FF FF 00*32 10 27", "02 00 03 00 04 00", "01=003|004\n02=\n03=005\nNow=10000\n"},
      {"FF*40", "", "01=\n02=\n03=\nNow=65535\n"},
      {"00*40", "01 00", "01=\n02=\n03=\nNow=0\n"},
  };
  for (const auto& [totals, first_slots, groups] : cases) {
    SCOPED_TRACE(totals + " / " + first_slots);
    std::vector<std::uint8_t> image = ImageWith(kSize, 255, 0, Hex(totals));
    const std::vector<std::uint8_t> slots = Hex(first_slots);
    std::copy(slots.begin(), slots.end(), image.begin() + kPool);
    const IniText project = Decoded(DecodeHuntGroup, image, "[HuntGroup]\n01=old\n20=old\n");
    ExpectKeys(project, "[HuntGroup]\n20=\nMax=20\n" + groups);
    EXPECT_EQ(project.Keys("HuntGroup").size(), 22U);
  }
}

}  // namespace
}  // namespace tarvok::test
