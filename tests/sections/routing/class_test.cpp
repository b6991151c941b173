#include "sections/routing/class_digit.h"
#include "sections/routing/class_group.h"
#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

constexpr int kSize = 1064;

const Place kBan = {"COR", "20", kSize, 38};
const Place kAllow = {"COR", "20A", kSize, 38};

TEST(ClassDigit, EndAndPoolOfAList) {
  for (const bool ban : {true, false}) {
    ExpectRecords(ban ? EncodeClassBan : EncodeClassAllow, ban ? kBan : kAllow,
                  {{"", "00 00 00*9"},
                   {"90*", "03 00 9A B0 00*7"},
                   {"1234|0*#|0", "08 00 12 34 00 AB C0 00 A0 00 00"},
                   // An empty piece costs a byte, behind a closing pipe too.
                   {"12||3", "05 00 12 00 00 30 00*5"},
                   {"12|", "03 00 12 00*8"},
                   {"|", "02 00 00*9"},
                   // Letters are codes, "F" is one of them.
                   {"F|aB", "04 00 F0 00 AB 00*6"}});
  }
}

TEST(ClassDigit, FullPoolAndErrors) {
  // 999 bytes and 23, each with its end.
  const std::string full = "[COR]\n01=" + std::string(1998, '1') + "\n02=" + std::string(46, '2');
  const ImageWriter image = Encoded(EncodeClassBan, kSize, full);
  EXPECT_EQ(image.error(), "");
  EXPECT_EQ(Part(image, 36, 4), Hex("00 04 00 04"));
  EXPECT_EQ(Part(image, 1062, 2), Hex("22 00"));
  const std::string none =
      "section COR, row 03, field Ban Number: value 4 has no place in the pool that all classes share";
  EXPECT_EQ(Encoded(EncodeClassBan, kSize, full + "\n03=4").error(), none);
  // One byte is left: not enough for a digit and its end.
  EXPECT_EQ(Encoded(EncodeClassBan, kSize, full.substr(0, full.size() - 2) + "\n03=4").error(), none);
  ExpectErrors(EncodeClassAllow, kAllow,
               {{"4|1x", "Allow Number: value 1x", "holds a character that can't be dialled"}});
}

TEST(ClassDigit, ListsOfAnImage) {
  const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
      {"03 00 06 00", "9A B0 00 12 34 00", "90*", "1234"},
      {"06 00 06 00", "AB C0 00 05 A1 00", "0*#|501", ""},
      // A number ends at its first code 0; ends without digits are dropped.
      {"09 00 09 00", "00 10 12 00 00 00 10 00 00", "1|1", ""},
      // What no end closes is kept as it stands, a code 0 in it too.
      {"02 00 05 00", "9A B0 00 10 2D", "90*0", "102D"},
      {"05 FF 02 00", "12 00", "", "12"},
      {"FF FF FF FF", "12 00", "", ""},
      // An end in front of the one before it takes nothing back.
      {"04 00 02 00", "12 00 34 00", "12|34", ""},
  };
  for (const auto& [ends, pool, first, second] : cases) {
    SCOPED_TRACE(pool);
    std::vector<std::uint8_t> image = ImageWith(kSize, 0, 40, Hex(pool));
    const std::vector<std::uint8_t> words = Hex(ends);
    std::copy(words.begin(), words.end(), image.begin());
    const IniText ban = Decoded(DecodeClassBan, image, "[COR]\n01A=77\n20=88");
    ExpectKeys(ban, "[COR]\n01=" + first + "\n02=" + second + "\n01A=77\n20=\nMax=20\n");
    const IniText allow = Decoded(DecodeClassAllow, image);
    EXPECT_EQ(allow.Get("COR", "02A"), second);
    EXPECT_EQ(allow.Keys("COR").size(), 21U);
  }
  // A pointer beyond the pool stops at its end.
  std::vector<std::uint8_t> beyond = ImageWith(kSize, 1, 0, Hex("FF FE"));
  EXPECT_EQ(Decoded(DecodeClassBan, beyond).Get("COR", "01"), std::string(1024, '1'));
}

TEST(ClassGroup, BothWays) {
  const Place last = {"COR_Group", "15", 120, 112};
  ExpectRecords(EncodeClassGroup, last,
                {{"", "FF*8"},
                 {"03", "02 FF*7"},
                 {"01|02|03|04|05|06|07|20", "00 01 02 03 04 05 06 13"},
                 {"F|01||0|-2|12|", "00 0B FF*6"},
                 {"255", "FE FF*7"}});
  ExpectErrors(EncodeClassGroup, last,
               {{"1|2|3|4|5|6|7|8|9", "COR Number: value 9", "has no place in its group any more"},
                {"1|256", "COR Number: value 256"}});
  const IniText project = Decoded(DecodeClassGroup, Hex("FF 02 FF 13 FF*4 00*8"));
  ExpectKeys(project, "[COR_Group]\n01=03|20\n02=01|01|01|01|01|01|01|01\n");
  EXPECT_EQ(project.Keys("COR_Group").size(), 16U);
  EXPECT_TRUE(Decoded(DecodeClassGroup, Hex("FF*120")).HasKey("COR_Group", "15"));
}

}  // namespace
}  // namespace tarvok::test
