#include "sections/routing/tenan.h"

#include "tests/sections/record_case.h"

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
  const std::tuple<Decoder, std::string, std::size_t, std::string> cases[] = {
      // The short image leaves the upper tenants alone.
      {DecodeTenan16, "05 00 00*28 FF FF 01 80 00*30", 35,
       "[Tenan]\nMax=16\n101=0000000000000101\n116=1111111111111111\n201=1000000000000001\n"
       "216=0000000000000000\n117=old\n301=old\n"},
      {DecodeTenan32, "05 00 01 80 00*122 FF 00 02 00*126 80", 129,
       "[Tenan]\nMax=32\n101=0000000000000101\n301=1000000000000001\n332=0000000011111111\n"
       "132=0000000000000000\n201=0000000000000010\n432=1000000000000000\n"}};
  for (const auto& [decode, image, count, keys] : cases) {
    const IniText project = Decoded(decode, Hex(image), "[Tenan]\n117=old\n301=old");
    ExpectKeys(project, keys);
    EXPECT_EQ(project.Keys("Tenan").size(), count);
  }
}

}  // namespace
}  // namespace tarvok::test
