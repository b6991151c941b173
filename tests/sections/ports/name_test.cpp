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
  const struct {
    std::string image;
    std::string name;
    std::string now;
    std::uint8_t fill;
    bool has_key;
  } cases[] = {
      {"42 61 72 20*12", "Bar", "1", 0x20, true},
      {"46 69 66 74 65 65 6E 20 6C 65 74 74 65 72 73", "Fifteen letters", "1", 0x20, true},
      {"20*15", "", "0", 0x20, false},
      // Records of 0 count as names and leave an empty key.
      {"42 00 72 20*12", "B", "1", 0x20, true},
      {"00*15", "", "1", 0x20, true},
      {"42 61 72 00*12", "Bar", "500", 0x00, true},
      {"E9*15", "\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9", "500", 0xFF, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.image);
    const IniText project =
        Decoded(DecodeName, ImageWith(kSize, c.fill, 499 * kRecord, Hex(c.image)), "[Name]\n500=old\n");
    EXPECT_EQ(project.Get("Name", "500"), c.name);
    EXPECT_EQ(project.HasKey("Name", "500"), c.has_key);
    EXPECT_EQ(project.Get("Name", "Max"), "500");
    EXPECT_EQ(project.Get("Name", "Now"), c.now);
  }
}

}  // namespace
}  // namespace tarvok::test
