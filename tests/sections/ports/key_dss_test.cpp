#include "sections/ports/key_dss.h"

#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

constexpr int kSize = 11424;
constexpr int kSecond = 476;  // the second layout
constexpr int kDss = kSecond + 220;

TEST(KeyDss, ImageOfAKey) {
  const std::string error = "section Key, row 02, field Key 2: value ";
  const std::pair<std::string, std::string> cases[] = {
      {"F", "00 FF*10"},
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
      {"TR1,2,3", error + "TR1,2,3" + kNotDialled},
  };
  for (const auto& [key, image] : cases)
    ExpectImage(EncodeKeyDss, kSize, "[key]\n02=F|" + key, kSecond + 11, image);
  // A missing row is zeros, missing fields of a row that is there are "F".
  ExpectImage(EncodeKeyDss, kSize, "[Key]\n02=ML1", 0, "00*476 05 01 00*9 00 FF*10 00 FF*10");
  ExpectImage(EncodeKeyDss, kSize, "[Key]\n02=ML1", kSecond + 19 * 11, "00 FF*10 00*256 00*476");
}

TEST(KeyDss, ImageOfAConsoleButton) {
  const std::pair<std::string, std::string> cases[] = {
      {"F", "00*4"},
      {"TE*1#", "01 B1 C0 00"},
      {"TE1234567", "01 12 34 56"},
      {"TR100", "03 1A A0 00"},
      {"EX10", "03 1A 00*2"},
      {"GO3", "01 30 00*2"},
      {"Q", "01 00*3"},
      {"TR1#", "section DSS, row 02, field DSS 2: value TR1#" + kNotDialled},
  };
  for (const auto& [button, image] : cases)
    ExpectImage(EncodeKeyDss, kSize, "[DSS]\n02=EX1|" + button, kDss + 4, image);
  ExpectImage(EncodeKeyDss, kSize, "[DSS]\n02=EX1", 0, "00*696 03 10 00 00 00*252");
}

TEST(KeyDss, KeysOfAnImage) {
  const std::pair<std::string, std::string> cases[] = {
      {"01 B1 2C 00*8 02 12 00 00 34 50 00*5 02 12 34 56 70 00*6", "TE*12#|TR12,345|TR123456,7"},
      {"03 1A A0 00*8 04 03 00*9 04 20 1A 50 00*7 04 FF 00*9 04 00*10", "EX100|GO3|GO32,105|GO255|GO0"},
      {"00 FF*10 06 12*10 FF*11 01 00*10 02 00*3 90 00*6", "F|F|F|TE|TR,9"},
      // Bytes of 0 are skipped, a low half of 0 ends the number, 255 is two letters.
      {"03 12 00 34 50 67 00*5 03 FF 1F 00*8", "EX12345|EXFF1F"},
      // Lines that are taken, numbers that are none, and the lowest free line for those without.
      {"05 02 00*9 05 00*10 05 09 00*9 05 00 30 00*8", "ML2|ML1|ML4|ML3"},
      {"05 00*10 05 00*10 05 00*10 05 00*10 05 00*10 05 00*10", "ML1|ML2|ML3|ML4|ML5|ML"},
      {"05 01 00*9 05 01 00*9 05 01 00*9 05 00*10 05 00*10 05 00*10", "ML1|ML1|ML1|ML2|ML3|ML"},
  };
  for (const auto& [entries, keys] : cases) {
    SCOPED_TRACE(entries);
    const auto count = static_cast<int>(Hex(entries).size() / 11);
    const IniText project = Decoded(DecodeKeyDss, ImageWith(kSize, 0, kSecond, Hex(entries)));
    ExpectKeys(project,
               "[Key]\n02=" + keys + "|F*" + std::to_string(20 - count) + "\n24=F*20\n[DSS]\n02=F*64\n");
    EXPECT_EQ(project.Keys("Key").size() + project.Keys("DSS").size(), 48U);
  }
}

TEST(KeyDss, ConsoleButtonsOfAnImage) {
  const IniText project = Decoded(
      DecodeKeyDss,
      ImageWith(kSize, 255, kDss,
                Hex("01 B1 C0 00 02 1A A0 00 03 1A A0 00 04 12 00 00 01 00*3 FF 12 34 56 03 12 34 56")));
  ExpectKeys(project, "[DSS]\n02=TE*1#|TR100|EX100|F|F|F|EX123456|F*57\n[Key]\n02=F*20\n");
}

}  // namespace
}  // namespace tarvok::test
