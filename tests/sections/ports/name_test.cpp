#include "sections/ports/name.h"

#include "tests/sections/coder_case.h"

namespace tarvok::test {
namespace {

constexpr int kSize = 7500;
constexpr int kRecord = 15;

TEST(Name, ImageOfNames) {
  const ImageWriter image = Encoded(
      EncodeName, kSize, "[Name]\nNow=4\n001=Bar \n002=Fifteen letters\n004=Sixteen letters!\n005=Lost\n");
  EXPECT_EQ(image.error(), "");
  EXPECT_EQ(Part(image, 0, kRecord), Hex("42 61 72 00*12"));
  EXPECT_EQ(Part(image, kRecord, kRecord), Hex("46 69 66 74 65 65 6E 20 6C 65 74 74 65 72 73"));
  EXPECT_EQ(Part(image, 2 * kRecord, kRecord), Hex("00*15"));
  EXPECT_EQ(Part(image, 3 * kRecord, kRecord), Hex("53 69 78 74 65 65 6E 20 6C 65 74 74 65 72 73"));
  EXPECT_EQ(Part(image, 4 * kRecord, kSize - 4 * kRecord), Hex("00*7440"));  // above "Now"
}

TEST(Name, NamesOfAnImage) {
  const std::tuple<std::string, std::string, std::string, std::uint8_t, bool> cases[] = {
      {"42 61 72 20*12", "Bar", "1", 0x20, true},
      {"46 69 66 74 65 65 6E 20 6C 65 74 74 65 72 73", "Fifteen letters", "1", 0x20, true},
      {"20*15", "", "0", 0x20, false},
      // Records of 0 count as names and leave an empty key.
      {"42 00 72 20*12", "B", "1", 0x20, true},
      {"00*15", "", "1", 0x20, true},
      {"42 61 72 00*12", "Bar", "500", 0x00, true},
      {"E9*15", "\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9", "500", 0xFF, true},
  };
  for (const auto& [image, name, now, fill, has_key] : cases) {
    SCOPED_TRACE(image);
    const IniText project =
        Decoded(DecodeName, ImageWith(kSize, fill, 499 * kRecord, Hex(image)), "[Name]\n500=old\n");
    EXPECT_EQ(project.Get("Name", "500"), name);
    EXPECT_EQ(project.HasKey("Name", "500"), has_key);
    ExpectKeys(project, "[Name]\nMax=500\nNow=" + now + "\n");
  }
}

}  // namespace
}  // namespace tarvok::test
