// Hunt groups, keys and profiles.

#include "sections/ports/hunt_group.h"
#include "sections/ports/key_dss.h"
#include "sections/ports/port_config.h"
#include "tests/floors.h"
#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

constexpr int kHuntSize = 1040;
constexpr int kPool = 40;

TEST(HuntGroup, EncodesGroups) {
  const std::string full = "02=" + Repeated("001|", 499);
  ExpectImages(EncodeHuntGroup, kHuntSize, "[HuntGroup]\n", 0,
               {{"", "00*40 FF*1000"},
                {"01=001|002|500\n02=\n03=300|256",
                 "03 00 03 00 " + Repeated("05 00 ", 18) + "00 00 01 00 F3 01 2B 01 FF 00 FF*990"},
                // A single member has no pipe. Pieces that are not numbers, "F", 0 or empty are skipped.
                {"20=007", "00*38 01 00 06 00 FF*998"},
                {"20=|F|0||x|-3|008|", "00*38 01 00 07 00 FF*998"},
                {"21=007\n1=007\nNow=9", "00*40 FF*1000"},
                {full + "\n05=400", "00 00 F3 01 F3 01 F3 01 " + Repeated("F4 01 ", 16) + "00*998 8F 01"},
                {full + "\n05=400|401",
                 "section HuntGroup, row 05, field Member: value 401 has no place in the pool that "
                 "all groups share"}});
}

TEST(HuntGroup, DecodesGroups) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"03 00 03 00 05 00*33 05 00", "00 00 01 00 F3 01 2B 01 FF 00",
       "01=001|002|500\n02=\n03=300|256\nNow=5\n"},
      {"01 00 00*38", "06 00", "01=007\n02=\n03=\nNow=0\n"},
      // Unset slots below a total are skipped. A high byte of 255 alone does not mean unset.
      {"04 00*37 04 00", "FF FF 02 00 FF FF 05 FF", "01=003|65286\n02=\n03=\nNow=4\n"},
      // A total that decreases gives an empty group; a total past the pool is cut at its end.
      {"02 00 01 00 FF FF 00*32 10 27", "02 00 03 00 04 00", "01=003|004\n02=\n03=005\nNow=10000\n"},
      {"FF*40", "", "01=\n02=\n03=\nNow=65535\n"},
      {"00*40", "01 00", "01=\n02=\n03=\nNow=0\n"},
  };
  for (const auto& [totals, first_slots, groups] : cases) {
    SCOPED_TRACE(totals + " / " + first_slots);
    const auto image = With(ImageWith(kHuntSize, 255, 0, Hex(totals)), kPool, Hex(first_slots));
    const IniText project = Decoded(DecodeHuntGroup, image, "[HuntGroup]\n01=old\n20=old\n");
    ExpectKeys(project, "[HuntGroup]\n20=\nMax=20\n" + groups);
  }
}

constexpr int kKeySize = 11424;
constexpr int kSecond = 476;  // the second layout
constexpr int kDss = kSecond + 220;

TEST(KeyDss, EncodesKeys) {
  const std::string error = "section Key, row 02, field Key 2: value ";
  ExpectImages(EncodeKeyDss, kKeySize, "[key]\n02=F|", kSecond + 11,
               {{"F", "00 FF*10"},
                {"TE*12#", "01 B1 2C 00*8"},
                {"TE", "01 00*10"},
                {"TE01234567890123456789xyz", "01 A1 23 45 67 89 A1 23 45 67 89"},
                {"TR12,345", "02 12 00 00 34 50 00*5"},
                {"TR1234567,123456789012345", "02 12 34 56 12 34 56 78 9A 12 34"},
                {"TR,9", "02 00*3 90 00*6"},
                {"TR1234567", "02 12 34 56 70 00*6"},
                {"EX100", "03 1A A0 00*8"},
                {"GO3", "04 03 00*9"},
                {"GO32,105", "04 20 1A 50 00*7"},
                {"ML5", "05 05 00*9"},
                {"C05", "00 00*10"},
                {"X", "00 00*10"},
                {"GO256", error + "GO256" + kTooLarge},
                {"ML-1", error + "ML-1" + kNegative},
                {"EX1*", error + "EX1*" + kNotDialled},
                {"TR1,2,3", error + "TR1,2,3" + kNotDialled}});
  // A missing row is all 0; missing fields of an existing row are "F".
  ExpectImage(EncodeKeyDss, kKeySize, "[Key]\n02=ML1", 0, "00*476 05 01 00*9 00 FF*10 00 FF*10");
  ExpectImage(EncodeKeyDss, kKeySize, "[Key]\n02=ML1", kSecond + 19 * 11, "00 FF*10 00*256 00*476");
}

TEST(KeyDss, EncodesConsoleButtons) {
  ExpectImages(EncodeKeyDss, kKeySize, "[DSS]\n02=EX1|", kDss + 4,
               {{"F", "00*4"},
                {"TE*1#", "01 B1 C0 00"},
                {"TE1234567", "01 12 34 56"},
                {"TR100", "03 1A A0 00"},
                {"EX10", "03 1A 00*2"},
                {"GO3", "01 30 00*2"},
                {"Q", "01 00*3"},
                {"TR1#", "section DSS, row 02, field DSS 2: value TR1#" + kNotDialled}});
  ExpectImage(EncodeKeyDss, kKeySize, "[DSS]\n02=EX1", 0, "00*696 03 10 00 00 00*252");
}

TEST(KeyDss, DecodesKeys) {
  const std::pair<std::string, std::string> cases[] = {
      {"01 B1 2C 00*8 02 12 00 00 34 50 00*5 02 12 34 56 70 00*6", "TE*12#|TR12,345|TR123456,7"},
      {"03 1A A0 00*8 04 03 00*9 04 20 1A 50 00*7 04 FF 00*9 04 00*10", "EX100|GO3|GO32,105|GO255|GO0"},
      {"00 FF*10 06 12*10 FF*11 01 00*10 02 00*3 90 00*6", "F|F|F|TE|TR,9"},
      // Bytes 0 are skipped, a low half of 0 ends the number, 255 gives two letters.
      {"03 12 00 34 50 67 00*5 03 FF 1F 00*8", "EX12345|EXFF1F"},
      // Valid lines are kept; keys without a line or with an invalid one get the lowest free line.
      {"05 02 00*9 05 00*10 05 09 00*9 05 00 30 00*8", "ML2|ML1|ML4|ML3"},
      {"05 00*10 05 00*10 05 00*10 05 00*10 05 00*10 05 00*10", "ML1|ML2|ML3|ML4|ML5|ML"},
      {"05 01 00*9 05 01 00*9 05 01 00*9 05 00*10 05 00*10 05 00*10", "ML1|ML1|ML1|ML2|ML3|ML"},
  };
  for (const auto& [entries, keys] : cases) {
    SCOPED_TRACE(entries);
    const auto count = static_cast<int>(Hex(entries).size() / 11);
    const IniText project = Decoded(DecodeKeyDss, ImageWith(kKeySize, 0, kSecond, Hex(entries)));
    ExpectKeys(project, "[Key]\n02=" + keys + "|F*" + std::to_string(20 - count) +
                            "\n24=F*20\n[DSS]\n02=F*64\n24=F*64\n");
  }
}

TEST(KeyDss, DecodesConsoleButtons) {
  const IniText project = Decoded(
      DecodeKeyDss,
      ImageWith(kKeySize, 255, kDss,
                Hex("01 B1 C0 00 02 1A A0 00 03 1A A0 00 04 12 00 00 01 00*3 FF 12 34 56 03 12 34 56")));
  ExpectKeys(project, "[DSS]\n02=TE*1#|TR100|EX100|F|F|F|EX123456|F*57\n[Key]\n02=F*20\n");
}

constexpr int kProfilesSize = 400;
constexpr int kLast = 380;

TEST(PortConfig, EncodesAndDecodesThreeLayouts) {
  const std::string unset = "F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F";
  const std::string zeros = "0|00|0|0|0|0|0|0|0|1234567|0|0|0|0|0|0|0|0|256";
  // Mostly different values, to show where each field goes.
  const std::string full = "01|15|1|2|3|4|255|7|9|10203040506070|1|2|1|0|30|1|90|03|255";
  const std::string full_record = "03 00 0E 01 02 04 FF 07 09 1A 2A 3A 01 02 01 00 1E 01 5A 00";
  ExpectCoded({EncodePortConfigA, DecodePortConfigA, "PortConfig", "20", kProfilesSize, kLast},
              {{"", "00 FF FF 00*17"},
               {unset, "00 FF FF 00*17", kOut},
               {full, "03 00 0E 01 02 04 FF 07 09 1A 2A 3A 01 02 01 00 1E 01 00 00", kOut},
               {"01|15|1|2|3|4|255|7|9|102030|1|2|1|0|30|1", full_record, kBack},
               {zeros, "00 FF FF 00*6 12 34 56 00*8", kOut},
               {"02|F|1", "00 01 FF 01 00*16", kOut},
               {"F|F|0|0|0|0|255|255|255|F|0|0|0|0|0|0", "FF*20", kBack},
               {"01|01|0|0|0|0|0|0|0|F|0|0|0|0|0|0", "00*20", kBack},
               {"1|1|1|1|1|1|1|1|1|12*", "Hotline Oper: value 12*" + kNotDialled}});
  ExpectCoded({EncodePortConfigB, DecodePortConfigB, "PortConfig", "20", kProfilesSize, kLast},
              {{"", "00 FF FF 00*17"},
               {"", "00 FF FF 00*6 12 34 56 00*8", kBack},
               {unset, "00 FF FF 00*6 FF FF FF 00*8", kOut},
               {full, "03 00 0E 01 02 04 FF 07 09 FF FF FF 01 02 01 00 1E 01 5A 00", kOut},
               {"01|15|1|2|3|4|255|7|9|F|1|2|1|0|30|1|90", full_record, kBack},
               {zeros, "00 FF FF 00*6 FF FF FF 00*8", kOut},
               {"02|F|1", "00 01 FF 01 00*5 FF FF FF 00*8", kOut},
               {"F|F|0|0|0|0|255|255|255|F|0|0|0|0|0|0|255", "FF*20", kBack}});
  ExpectCoded({EncodePortConfig2, DecodePortConfig2, "PortConfig", "20", kProfilesSize, kLast},
              {{"", "00*6 FF 00*13", kOut},
               {unset, "00*6 FF 08 00*12", kOut},
               {full, "1A 2A 3A 4A 5A 6A 02 FF 00*12", kOut},
               {zeros, "12 34 56 70 00 00 FF FF 00*12", kOut},
               {"02|F|1", "00*6 FF 08 00*12", kOut}});
  ExpectKeys(Decoded(DecodePortConfigA, {}), "[PortConfig]\nNow=20\n");
  ExpectKeys(Decoded(DecodePortConfigB, {}), "[PortConfig]\nNow=20\n");
}

TEST(PortConfig, SecondSectionMergesIntoFirst) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"01|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0", "1A 2A 3A 4A 5A 6A 02 FF 00*12",
       "01|F|0|0|0|0|0|0|0|102030405060|0|0|0|0|0|0|0|3|255"},
      {"01|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0", "FF*20", "01|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|255"},
      {"", "12 00*5 02 FF 00*12", ""},
  };
  for (const auto& [held, image, merged] : cases) {
    const std::string row = held.empty() ? "" : "20=" + held + "\n";
    const IniText project =
        Decoded(DecodePortConfig2, ImageWith(kProfilesSize, 0, kLast, Hex(image)), "[PortConfig]\n" + row);
    ExpectKeys(project, "[PortConfig]\n" + (merged.empty() ? "-20" : "20=" + merged) + "\n");
  }
}

}  // namespace
}  // namespace tarvok::test
