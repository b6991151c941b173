#include "sections/routing/group_out.h"

#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

const Place kLast = {"Group_Out", "32", 2112, 62};

TEST(GroupOut, EndsAndPool) {
  EXPECT_EQ(Encoded(EncodeGroupOut, 2112, "").bytes(), Hex("00*64 FF*2048"));
  // A lone member has no pipe; pieces that stand for nothing take no place.
  ExpectRecords(
      EncodeGroupOut, kLast,
      {{"", "00 00 FF*8"}, {"500", "01 00 F3 01 FF*6"}, {"|F|0|257||-1|x|65535|", "02 00 00 01 FE FF FF*4"}});
  EXPECT_EQ(Encoded(EncodeGroupOut, 2112, "[Group_Out]\n01=001|012|500\n03=006|002").bytes(),
            Hex("03 00 03 00" + Repeated(" 05 00", 30) + " 00 00 0B 00 F3 01 05 00 01 00 FF*2038"));
}

TEST(GroupOut, FullPoolAndErrors) {
  const std::string ports = Repeated("001|", 490);
  const std::string full =
      "[Group_Out]\n01=" + ports + "\n02=" + ports + "\n31=" + Repeated("001|", 44) + "\n32=";
  EXPECT_EQ(Part(Encoded(EncodeGroupOut, 2112, full), 60, 2052), Hex("00 04 00 04 00*2048"));
  EXPECT_EQ(
      Encoded(EncodeGroupOut, 2112, full + "077").error(),
      "section Group_Out, row 32, field Member: value 077 has no place in the pool that all groups share");
  ExpectErrors(EncodeGroupOut, kLast, {{"1|65536", "Member: value 65536"}});
}

TEST(GroupOut, GroupsOfAnImage) {
  std::vector<std::uint8_t> image = ImageWith(2112, 0, 64, Hex("0B 00 F3 01 FF FF 05 FF 01 00"));
  image[0] = image[2] = 2;
  image[4] = 4;
  image[63] = 255;  // no unset end, only 65,535 is
  const IniText project = Decoded(DecodeGroupOut, image);
  ExpectKeys(project, "[Group_Out]\n01=012|500\n02=\n03=65286\n04=\n");
  EXPECT_EQ(project.Get("Group_Out", "32").substr(0, 11), "002|001|001");
  ExpectKeys(project, "[Group_Out]\nNow=65280\nMax=32\nMax_Group_Out=1024\n");

  image[62] = 255;
  const IniText empty = Decoded(DecodeGroupOut, image, "[Group_Out]\n01=old");
  ExpectKeys(empty, "[Group_Out]\nNow=0\n01=\n");
  EXPECT_EQ(empty.Keys("Group_Out").size(), 35U);
}

}  // namespace
}  // namespace tarvok::test
