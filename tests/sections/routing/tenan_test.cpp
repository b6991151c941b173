#include "sections/routing/tenan.h"

#include "tests/sections/routing/record_case.h"

namespace tarvok::test {
namespace {

TEST(Tenan, MasksOfAProject) {
  const std::string project =
      "[Tenan]\n101=0000000000000101\n116=1\n201=1000000000000000\n301=1000000000000001\n132=1x1\n"
      "401=0000000000000010\n432=1111111111111111\n202=0000";
  EXPECT_EQ(Encoded(EncodeTenan16, 64, project).bytes(), Hex("05 00 FF*28 01 00 00 80 00 00 FF*28"));
  EXPECT_EQ(Encoded(EncodeTenan32, 256, project).bytes(),
            Hex("05 00 01 80 00*56 01 00 00 00 00*60 05 00 00 00 00 80 02 00 00*122 FF FF"));
}

TEST(Tenan, MoreThanSixteenColumnsAreAnError) {
  const std::string wide = "1" + std::string(70, '0');
  const std::string why = "has more than 16 columns";
  ExpectErrors(EncodeTenan16, {"Tenan", "216", 64, 0}, {{wide, "Columns 16 to 1: value " + wide, why}});
  ExpectErrors(EncodeTenan32, {"Tenan", "132", 256, 0}, {{wide, "Columns 16 to 1: value " + wide, why}});
  ExpectErrors(EncodeTenan32, {"Tenan", "432", 256, 0}, {{wide, "Columns 32 to 17: value " + wide, why}});
  ExpectRecords(EncodeTenan16, {"Tenan", "101", 64, 0}, {{"000" + std::string(16, '1'), "FF FF"}});
  ExpectRecords(EncodeTenan16, {"Tenan", "117", 64, 0}, {{wide, "FF*64"}});
}

TEST(Tenan, RowsOfAnImage) {
  const struct {
    Decoder decode;
    std::string image;
    std::string max;
    std::size_t keys;
    std::vector<std::pair<std::string, std::string>> rows;
  } cases[] = {
      // The short image leaves the upper tenants alone.
      {DecodeTenan16,
       "05 00 00*28 FF FF 01 80 00*30",
       "16",
       35,
       {{"101", "0000000000000101"},
        {"116", "1111111111111111"},
        {"201", "1000000000000001"},
        {"216", "0000000000000000"},
        {"117", "old"},
        {"301", "old"}}},
      {DecodeTenan32,
       "05 00 01 80 00*122 FF 00 02 00*126 80",
       "32",
       129,
       {{"101", "0000000000000101"},
        {"301", "1000000000000001"},
        {"332", "0000000011111111"},
        {"132", "0000000000000000"},
        {"201", "0000000000000010"},
        {"432", "1000000000000000"}}},
  };
  for (const auto& c : cases) {
    const IniText project = Decoded(c.decode, Hex(c.image), "[Tenan]\n117=old\n301=old");
    EXPECT_EQ(project.Get("Tenan", "Max"), c.max);
    EXPECT_EQ(project.Keys("Tenan").size(), c.keys);
    for (const auto& [key, row] : c.rows) EXPECT_EQ(project.Get("Tenan", key), row) << key;
  }
}

}  // namespace
}  // namespace tarvok::test
