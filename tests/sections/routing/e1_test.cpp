#include "sections/routing/e1_map.h"
#include "sections/routing/e1_number.h"
#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

const std::string kPorts =
    "[Port_Def]\nMax=500\n001=5|1|6\n002=5|2|6\n030=5|30|6|F|\n031=6|1|2\n032=7|F|6\n500=16|60|6\n";
const Place kLink = {"E1Map", "02", 40, 4};
const Place kNumber = {"E1Number", "20", 240, 228};

TEST(E1Map, RecordOfALink) {
  ExpectRecords(EncodeE1Map, kLink,
                {{"", "FF FF FF FF"},
                 {"F|F|0", "FF FF FF FF"},
                 {"001|F|1", "FF FF FF FF"},
                 {"F|030|1", "FF FF FF FF"},
                 {"001|030|0", "04 00 1D 00"},
                 {"500|002|1", "0F 3B 01 01"},
                 {"001|002|2", "04 00 01 10"},
                 {"001|002|3", "04 00 01 11"},
                 {"001|002|F", "04 00 01 00"},
                 // The ports' type is not asked. A port without card or channel, or none at all, is 255.
                 {"031|032|7", "05 00 FF 00"},
                 {"032|499|1", "06 FF FF 01"},
                 {"999|0|1", "FF FF FF 01"}},
                kPorts);
  EXPECT_EQ(Encoded(EncodeE1Map, 40, "[Port_Def]\n001=257|1|6\n[E1Map]\n01=001|001|0").error(),
            "section Port_Def, row 001, field Card: value 257 is more than its place on the wire can hold");
}

TEST(E1Map, LinkOfARecordAgainstThePorts) {
  ExpectRows(DecodeE1Map, kLink,
             {{"001|030|0", "04 00 1D 00"},
              {"500|500|3", "0F 3B 3B 11"},
              {"002|002|2", "04 01 01 10"},
              {"002|002|F", "04 01 01 FF"},
              // Not an E1 port, or on no card of the project.
              {"F|F|1", "05 00 00 01"},
              {"F|001|2", "04 05 00 02"},
              {"001|F|5", "04 00 FF 05"},
              {"F|F|F", "FF 00 00 01"},
              {"F|F|F", "00 FF 00 01"}},
             kPorts);
  // "Max" of the ports bounds the search.
  ExpectRows(DecodeE1Map, kLink, {{"001|F|0", "04 00 01 00"}}, "[Port_Def]\nMax=1\n001=5|1|6\n002=5|2|6\n");
  const IniText unused = Decoded(DecodeE1Map, Hex("FF*40"));
  ExpectKeys(unused, "[E1Map]\n10=F|F|F\nNow=10\n");
}

TEST(E1Number, RecordOfARow) {
  ExpectRecords(EncodeE1Number, kNumber,
                {{"", "00*10 FF FF"},
                 {"F|F|F", "00*10 FF FF"},
                 {"01|12*|12", "12 B0 00*8 12 00"},
                 {"10|01234567890123456789#|99", "A1 23 45 67 89 A1 23 45 67 89 99 09"},
                 {"0|#|9", "C0 00*9 09 FF"},
                 {"2", "00*10 FF 01"}});
  ExpectErrors(EncodeE1Number, kNumber,
               {{"1|1|100", "Digit Check: value 100"},
                {"1|1-2|1", "Numbering: value 1-2", "holds a character that can't be dialled"}});
}

TEST(E1Number, RowOfARecord) {
  ExpectRows(DecodeE1Number, kNumber,
             {{"F|F|F", "00*10 FF FF"},
              // Out as hexadecimal, back in decimal.
              {"1|12*|18", "12 B0 00*8 12 00"},
              {"10|01234567890123456789|5", "A1 23 45 67 89 A1 23 45 67 89 05 09"},
              {"255||0", "00 12 00*8 00 FE"},
              {"1|123|F", "01 02 30 00*7 FF 00"},
              {"F|FFFFFFFFFFFFFFFFFFFF|F", "FF*12"}});
  EXPECT_EQ(Decoded(DecodeE1Number, {}).Get("E1Number", "Max"), "20");
}

}  // namespace
}  // namespace tarvok::test
