// Outgoing groups, classes and tenants.

#include "sections/routing/class_digit.h"
#include "sections/routing/class_group.h"
#include "sections/routing/group_out.h"
#include "sections/routing/tenan.h"
#include "tests/floors.h"
#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

const Place kLast = {EncodeGroupOut, DecodeGroupOut, "Group_Out", "32", 2112, 62};

TEST(GroupOut, EncodesEndsAndPool) {
  // A single member has no pipe; pieces without a port take no place.
  ExpectCoded(kLast, {{"", "00 00 FF*2048", kOut},
                      {"500", "01 00 F3 01 FF*6", kOut},
                      {"|F|0|257||-1|x|65535|", "02 00 00 01 FE FF FF*4", kOut}});
  EXPECT_EQ(Encoded(EncodeGroupOut, 2112, "[Group_Out]\n01=001|012|500\n03=006|002").bytes(),
            Hex("03 00 03 00" + Repeated(" 05 00", 30) + " 00 00 0B 00 F3 01 05 00 01 00 FF*2038"));
  const std::string ports = Repeated("001|", 490);
  Place full = kLast;
  full.project = "[Group_Out]\n01=" + ports + "\n02=" + ports + "\n31=" + Repeated("001|", 44);
  ExpectCoded(full, {{"F", "00 04 00*2048", kOut},
                     {"077", "Member: value 077 has no place in the pool that all groups share"}});
}

TEST(GroupOut, DecodesGroups) {
  // An end is unset only at 65,535, not if just its high byte is 255.
  const std::string groups = "02 00 02 00 04 00 00*57 ";
  const std::string pool = " 0B 00 F3 01 FF FF 05 FF 01 00 00*2038";
  const IniText project = Decoded(DecodeGroupOut, Hex(groups + "FF" + pool));
  ExpectKeys(project, "[Group_Out]\n01=012|500\n02=\n03=65286\n04=\nNow=65280\nMax=32\nMax_Group_Out=1024\n");
  EXPECT_EQ(project.Get("Group_Out", "32").substr(0, 11), "002|001|001");
  ExpectKeys(Decoded(DecodeGroupOut, Hex("FF*64" + pool), "[Group_Out]\n01=old"),
             "[Group_Out]\nNow=0\n01=\n32=\n");
}

constexpr int kClassSize = 1064;

const Place kBan = {EncodeClassBan, DecodeClassBan, "COR", "20", kClassSize, 38};
const Place kAllow = {EncodeClassAllow, DecodeClassAllow, "COR", "20A", kClassSize, 38};

TEST(ClassDigit, EncodesEndAndPool) {
  for (const Place& place : {kBan, kAllow}) {
    ExpectCoded(place, {{"", "00 00 00*9", kOut},
                        {"90*", "03 00 9A B0 00*7", kOut},
                        {"1234|0*#|0", "08 00 12 34 00 AB C0 00 A0 00 00", kOut},
                        // An empty piece takes a byte, even after a trailing pipe.
                        {"12||3", "05 00 12 00 00 30 00*5", kOut},
                        {"12|", "03 00 12 00*8", kOut},
                        {"|", "02 00 00*9", kOut},
                        // Letters are codes, including "F".
                        {"F|aB", "04 00 F0 00 AB 00*6", kOut}});
  }
  ExpectCoded(kAllow, {{"4|1x", "Allow Number: value 1x" + kNotDialled}});
}

TEST(ClassDigit, ReportsFullPool) {
  // 999 and 23 bytes of digits, each followed by a byte 0.
  const std::string full = "[COR]\n01=" + std::string(1998, '1') + "\n02=" + std::string(46, '2');
  const ImageWriter image = Encoded(EncodeClassBan, kClassSize, full);
  EXPECT_EQ(image.error(), "");
  EXPECT_EQ(Part(image, 36, 4), Hex("00 04 00 04"));
  EXPECT_EQ(Part(image, 1062, 2), Hex("22 00"));
  const std::string none =
      "section COR, row 03, field Ban Number: value 4 has no place in the pool that all classes share";
  EXPECT_EQ(Encoded(EncodeClassBan, kClassSize, full + "\n03=4").error(), none);
  // One byte is left: not enough for a digit and its byte 0.
  EXPECT_EQ(Encoded(EncodeClassBan, kClassSize, full.substr(0, full.size() - 2) + "\n03=4").error(), none);
}

TEST(ClassDigit, DecodesLists) {
  const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
      {"03 00 06 00", "9A B0 00 12 34 00", "90*", "1234"},
      {"06 00 06 00", "AB C0 00 05 A1 00", "0*#|501", ""},
      // A number ends at its first code 0; numbers without digits are dropped.
      {"09 00 09 00", "00 10 12 00 00 00 10 00 00", "1|1", ""},
      // A number without its byte 0 ends with its class, or at its first code 0.
      {"02 00 05 00", "9A B0 00 10 2D", "90*", "1"},
      {"03 00 06 00", "F4 00 B0 12 50 12", "F4|*", "125"},
      {"02 00 05 00", "12 34 00 A0 05", "1234", "0"},
      {"05 FF 02 00", "12 00", "", "12"},
      {"FF FF FF FF", "12 00", "", ""},
      // An end below the one before it makes the list empty and changes nothing before it.
      {"04 00 02 00", "12 00 34 00", "12|34", ""},
  };
  for (const auto& [ends, pool, first, second] : cases) {
    SCOPED_TRACE(pool);
    const std::vector<std::uint8_t> image = With(ImageWith(kClassSize, 0, 40, Hex(pool)), 0, Hex(ends));
    const IniText ban = Decoded(DecodeClassBan, image, "[COR]\n01A=77\n20=88");
    ExpectKeys(ban, "[COR]\n01=" + first + "\n02=" + second + "\n01A=77\n20=\nMax=20\n");
    ExpectKeys(Decoded(DecodeClassAllow, image), "[COR]\n02A=" + second + "\n20A=\n");
  }
  // An end beyond the pool stops at the end of the pool.
  const IniText beyond = Decoded(DecodeClassBan, ImageWith(kClassSize, 1, 0, Hex("FF FE")));
  EXPECT_EQ(beyond.Get("COR", "01"), std::string(1024, '1'));
}

TEST(ClassGroup, EncodesAndDecodesGroups) {
  ExpectCoded({EncodeClassGroup, DecodeClassGroup, "COR_Group", "15", 120, 112},
              {{"", "FF*8", kOut},
               {kEmpty, "FF*8", kBack},
               {"03", "02 FF*7"},
               {"03|20", "FF 02 FF 13 FF*4", kBack},
               {"01|02|03|04|05|06|07|20", "00 01 02 03 04 05 06 13"},
               {"F|01||0|-2|12|", "00 0B FF*6", kOut},
               {"255", "FE FF*7"},
               {"1|2|3|4|5|6|7|8|9", "COR Number: value 9 has no place in its group any more"}});
}

TEST(Tenan, EncodesMasks) {
  const std::string project =
      "[Tenan]\n101=0000000000000101\n116=1\n201=1000000000000000\n301=1000000000000001\n132=1x1\n"
      "401=0000000000000010\n432=1111111111111111\n202=0000";
  EXPECT_EQ(Encoded(EncodeTenan16, 64, project).bytes(), Hex("05 00 FF*28 01 00 00 80 00 00 FF*28"));
  EXPECT_EQ(Encoded(EncodeTenan32, 256, project).bytes(),
            Hex("05 00 01 80 00*56 01 00 00 00 00*60 05 00 00 00 00 80 02 00 00*122 FF FF"));
}

TEST(Tenan, RejectsMoreThanSixteenColumns) {
  const std::string wide = "1" + std::string(16, '0');
  const std::string error = ": value " + wide + " has more than 16 columns";
  ExpectCoded({EncodeTenan16, DecodeTenan16, "Tenan", "216", 64, 0}, {{wide, "Columns 16 to 1" + error}});
  ExpectCoded({EncodeTenan32, DecodeTenan32, "Tenan", "132", 256, 0}, {{wide, "Columns 16 to 1" + error}});
  ExpectCoded({EncodeTenan32, DecodeTenan32, "Tenan", "432", 256, 0}, {{wide, "Columns 32 to 17" + error}});
  ExpectCoded({EncodeTenan16, DecodeTenan16, "Tenan", "101", 64, 0},
              {{"000" + std::string(16, '1'), "FF FF", kOut}});
  ExpectCoded({EncodeTenan16, DecodeTenan16, "Tenan", "117", 64, 0}, {{wide, "FF*64", kOut}});
}

TEST(Tenan, DecodesMasks) {
  const std::string old = "[Tenan]\n117=old\n301=old";
  // The short layout does not change the upper tenants.
  ExpectKeys(Decoded(DecodeTenan16, Hex("05 00 00*28 FF FF 01 80 00*30"), old),
             "[Tenan]\nMax=16\n101=0000000000000101\n116=1111111111111111\n201=1000000000000001\n"
             "216=0000000000000000\n117=old\n301=old\n");
  ExpectKeys(Decoded(DecodeTenan32, Hex("05 00 01 80 00*122 FF 00 02 00*126 80"), old),
             "[Tenan]\nMax=32\n101=0000000000000101\n301=1000000000000001\n332=0000000011111111\n"
             "132=0000000000000000\n201=0000000000000010\n432=1000000000000000\n");
}

}  // namespace
}  // namespace tarvok::test
