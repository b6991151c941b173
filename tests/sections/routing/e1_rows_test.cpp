// E1 links, their numbers, and the targets of DID numbers.

#include "sections/routing/did_redirect.h"
#include "sections/routing/e1_map.h"
#include "sections/routing/e1_number.h"
#include "tests/floors.h"
#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

constexpr const char* kPorts =
    "[Port_Def]\nMax=500\n001=5|1|6\n002=5|2|6\n030=5|30|6|F|\n031=6|1|2\n032=7|F|6\n500=16|60|6\n";
const Place kLink = {EncodeE1Map, DecodeE1Map, "E1Map", "02", 40, 4, kPorts};

TEST(E1Map, EncodesAndDecodesLinksByPort) {
  ExpectCoded(kLink, {{"", "FF FF FF FF", kOut},
                      {"F|F|0", "FF FF FF FF", kOut},
                      {"001|F|1", "FF FF FF FF", kOut},
                      {"F|030|1", "FF FF FF FF", kOut},
                      {"001|030|0", "04 00 1D 00"},
                      {"500|002|1", "0F 3B 01 01", kOut},
                      {"002|002|2", "04 01 01 10"},
                      {"500|500|3", "0F 3B 3B 11"},
                      {"001|002|F", "04 00 01 00", kOut},
                      {"002|002|F", "04 01 01 FF", kBack},
                      // The type of the port does not matter. A missing port, card or channel is 255.
                      {"031|032|7", "05 00 FF 00", kOut},
                      {"032|499|1", "06 FF FF 01", kOut},
                      {"999|0|1", "FF FF FF 01", kOut},
                      // Not an E1 port, or not in the project.
                      {"F|F|1", "05 00 00 01", kBack},
                      {"F|001|2", "04 05 00 02", kBack},
                      {"001|F|5", "04 00 FF 05", kBack},
                      {"F|F|F", "FF 00 00 01", kBack},
                      {"F|F|F", "00 FF 00 01", kBack}});
  EXPECT_EQ(Encoded(EncodeE1Map, 40, "[Port_Def]\n001=257|1|6\n[E1Map]\n01=001|001|0").error(),
            "section Port_Def, row 001, field Card: value 257" + kTooLarge);
  // The search ends at the "Max" of the ports.
  Place bounded = kLink;
  bounded.project = "[Port_Def]\nMax=1\n001=5|1|6\n002=5|2|6\n";
  ExpectCoded(bounded, {{"001|F|0", "04 00 01 00", kBack}});
  ExpectKeys(Decoded(DecodeE1Map, Hex("FF*40")), "[E1Map]\n10=F|F|F\nNow=10\n");
}

TEST(E1Number, EncodesAndDecodesRows) {
  ExpectCoded({EncodeE1Number, DecodeE1Number, "E1Number", "20", 240, 228},
              {{"", "00*10 FF FF", kOut},
               {"F|F|F", "00*10 FF FF"},
               // Encoded as hexadecimal, decoded as decimal.
               {"01|12*|12", "12 B0 00*8 12 00", kOut},
               {"1|12*|18", "12 B0 00*8 12 00", kBack},
               {"10|01234567890123456789#|99", "A1 23 45 67 89 A1 23 45 67 89 99 09", kOut},
               {"10|01234567890123456789|5", "A1 23 45 67 89 A1 23 45 67 89 05 09"},
               {"0|#|9", "C0 00*9 09 FF", kOut},
               {"2", "00*10 FF 01", kOut},
               {"255|F|0", "00 12 00*8 00 FE", kBack},
               {"1|123|F", "01 02 30 00*7 FF 00", kBack},
               {"F|FFFFFFFFFFFFFFFFFFFF|F", "FF*12", kBack},
               {"1|1|100", "Digit Check: value 100" + kTooLarge},
               {"1|1-2|1", "Numbering: value 1-2" + kNotDialled}});
  EXPECT_EQ(Decoded(DecodeE1Number, {}).Get("E1Number", "Max"), "20");
}

TEST(DidRedirect, EncodesAndDecodesRows) {
  ExpectCoded({EncodeDIDRedirect, DecodeDIDRedirect, "DIDRedirect", "400", 2800, 399 * 7},
              {{"", "FF*7"},
               {"F|F|F|F|F", "FF*7", kOut},
               {"1|0012|9999|0|010", "0C 00 0F 27 00 09 00", kOut},
               {"1|12|9999|0|010", "0C 00 0F 27 00 09 00"},
               {"10|0|65535|1|03", "00 00 FF FF 09 02 A0", kOut},
               {"F|F|F|1|03", "FF FF FF FF FF 02 A0"},
               {"F|F|F|2|F", "FF FF FF FF FF 00 B0", kOut},
               {"F|F|F|2|F", "FF FF FF FF FF FF BF", kBack},
               {"0|1|F|3|012", "01 00 FF FF FF 00 C0", kOut},
               {"F|F|F|3|F", "FF FF FF FF FF FF CF", kBack},
               {"1|1|1|4|F", "01 00 01 00 00 00 D0"},
               {"1|1|1|5|7", "01 00 01 00 00 FF FF", kOut},
               {"10|65279|F|4|F", "FF FE FF FF 09 FF FE", kBack},
               {"1|0|0|0|001", "00*7"},
               {"", "05 FF 00 FF FF 05 FF", kBack},
               // A missing number or list.
               {"1|1|1|0|F", "01 00 01 00 00 FF FF", kOut},
               {"1|1|1|1|0", "01 00 01 00 00 FF FF", kOut},
               {"1|1|1|1", "01 00 01 00 00 FF FF", kOut},
               {"F|F|F|0|40960", "FF FF FF FF FF FF 9F"},
               {"F|F|F|1|4096", "FF FF FF FF FF FF AF"},
               {"1|1|-1|0|001", "DID End: value -1" + kNegative},
               // These would reach into the range of the next type.
               {"1|1|1|0|40961", "Map Number: value 40961" + kTooLarge},
               {"1|1|1|1|4097", "Map Number: value 4097" + kTooLarge}});
  EXPECT_EQ(Decoded(DecodeDIDRedirect, {}).Get("DIDRedirect", "Max"), "400");
}

}  // namespace
}  // namespace tarvok::test
