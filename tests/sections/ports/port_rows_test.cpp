// Port sections with one record per row.

#include "sections/ports/account.h"
#include "sections/ports/assign.h"
#include "sections/ports/boss.h"
#include "sections/ports/name.h"
#include "sections/ports/number_tables.h"
#include "sections/ports/port_def.h"
#include "sections/ports/vm_call_back.h"
#include "tests/floors.h"
#include "tests/sections/record_case.h"
#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

constexpr int kRecord = 55;
const Place kPort = {EncodePortDef, DecodePortDef, "Port_Def", "500", 500 * kRecord, 499 * kRecord};

TEST(PortDef, EncodesAndDecodesRows) {
  const std::string unset =
      "FF FF 00 FF FF FF FF FF FF FF FF FF 00 00 FF 00*30 00 00 00 FF FF FF FF 00 00 FF";
  ExpectCoded(
      kPort,
      {// A row in which nothing is set has zeros where an unused row has 255.
       {"F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F", unset, kOut},
       {"3|4|1|2|1|7|001|012|1|305|F|F|F|F|20|300|1234|F|1|2|1|3|1",
        "02 03 01 FF FF 01 00 06 00 0B 2B 01 03 00 14 3A 50 00*4 00*24 00 12 34 00 00 02 01 11 01 FF", kOut},
       {"3|4|1|2|1|7|001|012|1|305|F|F|F|F|20|300|1234|0|1|2|1|3|1",
        "02 03 01 FF FF 01 00 06 00 0B 2B 01 03 00 14 3A 50 00*4 00*24 00 12 34 00 00 02 01 11 01 FF", kBack},
       {"16|60|14|20|32|99|F|F|0|12345678901234|F|F|F|100|255|001|103|0|0|0|F|F|F",
        "0F 3B 0E FF FF 13 1F 62 FF FF 00 00 22 00 FF 12 34 56 78 9A 12 00*18 1A A0 00*4 00 1A 30 FF FF 00 "
        "FF "
        "00 00 FF",
        kOut},
       {"1|1|1|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|2|F",
        "00 00 01 FF FF FF FF FF FF FF FF FF 00 00 FF 00*30 00 00 00 00 00 00 00 10 00 FF", kOut},
       {"1|1|1", "00 00 01" + unset.substr(8), kOut},
       // A high flag byte of 255 sets every flag. The digits then come from the record, without bytes 255.
       {"1|1|F|F|F|F|F|F|1|F|05|F|F|F|F|F|10|F|F|F|F|2|F",
        "00 00 00 00 00 FF FF FF FF FF FF FF 00 FF FF FF*6 0A 05 00 00 00 00 00*18 00 FF 1A FF FF FF FF 10 "
        "02 00",
        kBack},
       {"", "FF FF FF 01 02 03 04 05 06 07 08 00 00 00 00*41", kBack},
       {"", "FF FF 00 00*52", kBack},
       {"F|F|5|1|1|1|001|001|0|F|F|F|F|F|0|001|F|0|1|0|0|0|F", "FF FF 05 00*52", kBack},
       {"1|1|-1", "Type: value -1" + kNegative},
       {"1|1|1|F|F|F|F|F|255|1", "DND: value 255" + kTooLarge},
       {"1|1|1|F|F|F|F|F|F|12x", "Disa: value 12x" + kNotDialled},
       {"1|1|1|F|F|F|F|F|F|F|F|F|F|F|F|F|12x", "PSW: value (hidden)" + kNotDialled},
       {"1|1|1|F|F|F|F|F|F|F|F|F|F|F|F|65536", "Number: value 65536" + kTooLarge}});
  for (const char* good : {"255|1|1", "-5|1|1", "1|1|1|F|F|F|F|F|F|123456789012x"})
    EXPECT_EQ(Encoded(EncodePortDef, kPort.size, kPort.Project(good)).error(), "") << good;
  EXPECT_EQ(Decoded(DecodePortDef, {}).Get("Port_Def", "Now"), "500");
}

TEST(PortDef, SendsTheFirstBossRowOfThePort) {
  const ImageWriter image =
      Encoded(EncodePortDef, kPort.size,
              "[BOSS]\n03=002|003\n05=002|F\n07=F|002\n[Port_Def]\n002=1|1|1\n003=1|2|1\n");
  EXPECT_EQ(image.bytes()[kRecord + 54], 3);
  EXPECT_EQ(image.bytes()[2 * kRecord + 54], 255);
}

const Place kAssign = {EncodeAssign, DecodeAssign, "Assign", "500", 4500, 499 * 9, "[Assign]\nNow=500"};

TEST(Assign, EncodesAndDecodesRows) {
  ExpectCoded(kAssign, {{"", "FF*9"},
                        {"F|F|F|F|F", "00*3 FF FF FF FF FF FF", kOut},
                        {"100|0|500|4|256", "1A A0 00 00 F3 01 04 FF 00"},
                        {"1234567|7|0|0|F", "12 34 56 07 FF FF 00 FF FF", kOut},
                        {"5|0|F", "50 00 00 00 FF FF FF FF FF", kOut},
                        // The type decides how the value is padded.
                        {"F|0|005|F|F", "FF*3 00 04 00 FF FF FF", kBack},
                        {"F|1|5|F|F", "FF*3 01 04 00 FF FF FF", kBack},
                        {"F|2|05|F|F", "FF*3 02 04 00 FF FF FF", kBack},
                        {"F|3|05|F|F", "FF*3 03 04 00 FF FF FF", kBack},
                        {"12|F|F|0|F", "12 00 34 FF 05 FF 00 00 FF", kBack},
                        {"1230|7|1|F|F", "FF 12 3A 07 00 00 FF FF FF", kBack},
                        // A byte 0 ends the number, so nothing is left of a number of zeros.
                        {"F|0|001|0|001", "00*9"},
                        {"F|0|187|1|F", "00 12 34 00 BA 00 01 FF FF", kBack},
                        {"1x|0|1|1|1", "Number: value 1x" + kNotDialled},
                        {"1|0|1|-1|1", "Company: value -1" + kNegative}});
  // An existing row above "Now" is left out.
  ExpectImage(EncodeAssign, kAssign.size, "[Assign]\nNow=1\n001=1|F|F|F|F\n002=1|0|1|1|1", 0,
              "10 00 00 FF*6 FF*9");
  EXPECT_EQ(Decoded(DecodeAssign, {}).Get("Assign", "Now"), "500");
}

TEST(Name, EncodesAndDecodesNames) {
  ExpectCoded({EncodeName, DecodeName, "Name", "500", 7500, 499 * 15, "[Name]\nNow=500"},
              {{"", "00*15", kOut},
               {"Bar ", "42 61 72 00*12", kOut},
               {"Bar", "42 61 72 00*12"},
               {"Bar", "42 61 72 20*12", kBack},
               {"Fifteen letters", "46 69 66 74 65 65 6E 20 6C 65 74 74 65 72 73"},
               {"Sixteen letters!", "53 69 78 74 65 65 6E 20 6C 65 74 74 65 72 73", kOut},
               {"", "20*15", kBack},
               // A record of 0 counts as a name and gives an empty key.
               {kEmpty, "00*15", kBack},
               {"B", "42 00 72 20*12", kBack},
               {std::string(15, '\xE9'), "E9*15"}});
}

TEST(Name, NowCountsAndLimitsNames) {
  const ImageWriter above = Encoded(EncodeName, 7500, "[Name]\nNow=4\n005=Lost\n");
  EXPECT_EQ(above.bytes(), Hex("00*7500"));
  for (const auto& [fill, now] : {std::pair("20", "1"), std::pair("00", "500"), std::pair("FF", "500")}) {
    const IniText project = Decoded(DecodeName, Hex("42 61 72 20*12 " + (fill + std::string("*7485"))));
    ExpectKeys(project, std::string("[Name]\nMax=500\nNow=") + now + "\n");
  }
}

const Place kAccount = {EncodeAccount, DecodeAccount, "Account", "200", 5500, 199 * 11};

TEST(Account, EncodesAndDecodesRows) {
  ExpectCoded(kAccount, {{"", "FF*11"},
                         {"", "00*5 FF FF FF FF FF FF", kBack},
                         {"F|F|F|F|F|F", "00*5 FF FF FF FF FF FF", kOut},
                         {"120304|1099|500|20|32|300", "12 A3 A4 1A 99 F3 01 13 1F 2C 01"},
                         {"1234567|12345|001|0|x|0", "12 34 56 12 34 00 00 FF FF 00 00", kOut},
                         // The number is sent only with both account and password.
                         {"1234|F|7|1|1|F", "12 34 00 00 00 FE FF 00 00 FF FF", kOut},
                         {"F|12|7|F|F|F", "00*3 12 00 FE FF FF FF FF FF", kOut},
                         {"F|F|7|F|F|F", "00*5 FE FF FF FF FF FF", kOut},
                         {"1|F|F|F|F|F", "10 00*4 FE FF FF FF FF FF", kOut},
                         {"1|2|F", "10 00 00 20 00 FE FF FF FF FF FF", kOut},
                         {"1|2|0|F|F|F", "10 00 00 20 00 FE FF FF FF FF FF", kOut},
                         {"123|45|F|F|F|0", "12 00 30 00 45 FE FF FF FF 00 00", kBack},
                         // If their high byte is 255, number and time are not set.
                         {"05|10|F|255|1|F", "0A FF 05 FF 1A 00 FF FE 00 05 FF", kBack},
                         {"F|F|1|1|1|0", "00*11", kBack},
                         {"1*|2|3|4|5|6", "Account: value 1*" + kNotDialled},
                         {"1|2|3|4|5|-1", "Time (sec): value -1" + kNegative}});
  ExpectImage(EncodeAccount, kAccount.size, "[Account]\n201=1|2|3|4|5|6", 0, "FF*2200 00*3300");
  EXPECT_EQ(Decoded(DecodeAccount, Hex("10")).Get("Account", "001"), "1|F|1|1|1|0");
}

TEST(SmallTables, EncodesAndDecodesRows) {
  ExpectCoded({EncodeBoss, DecodeBoss, "BOSS", "02", 80, 4}, {{"", "FF*4", kOut},
                                                              {"F|F", "FF*4"},
                                                              {"001|F", "00 00 FF FF"},
                                                              {"256|500", "FF 00 F3 01"},
                                                              {"0|x", "FF*4", kOut},
                                                              {"007", "06 00 FF FF", kOut},
                                                              {"500|65286", "F3 01 05 FF", kBack},
                                                              {"001|001", "00*4"}});
  ExpectCoded({EncodeLinkTrunk, DecodeLinkTrunk, "LinkTrunk", "30", 240, 232},
              {{"", "00*8", kOut},
               {kEmpty, "00*8", kBack},
               {"1020", "1A 2A 00*6"},
               {"12345678901234567", "12 34 56 78 9A 12 34 56", kOut},
               {"F", "00*8", kOut},
               {"12304", "12 00 3A FF 40 56 00 00", kBack},
               {kEmpty, "FF*8", kBack},
               {"12|34", "Number: value 12|34" + kNotDialled}});
  ExpectCoded({EncodeDialPhone, DecodeDialPhone, "DialPhone", "24", 96, 92},
              {{"", "00*4", kOut},
               {kEmpty, "00*4", kBack},
               {"12345678", "12 34 56 78"},
               {"123456789", "12 34 56 78", kOut},
               {"1#", "Number: value 1#" + kNotDialled}});
  ExpectCoded({EncodeVMCallBack, DecodeVMCallBack, "VMCallBack", "10", 80, 72},
              {{"", "00*8", kOut},
               {"F|F", "00*8"},
               {"1234|*#", "31 32 33 34 2A 23 00 00"},
               {"12345|*#", "31 32 33 34 2A 23 00 00", kOut},
               {"0|", "30 00*7", kOut},
               {"F|00", "00*4 30 30 00 00"},
               {"F|78", "20 20 00 00 00 37 FF 38", kBack},
               {"F|F", "FF*8", kBack}});
}

TEST(SmallTables, DecodingWritesEveryRow) {
  ExpectKeys(Decoded(DecodeBoss, Hex("FF*80")), "[BOSS]\n01=F|F\n20=F|F\n");
  ExpectKeys(Decoded(DecodeLinkTrunk, {}), "[LinkTrunk]\n01=\n30=\n");
  ExpectKeys(Decoded(DecodeDialPhone, {}), "[DialPhone]\n01=\n24=\n");
  ExpectKeys(Decoded(DecodeVMCallBack, {}), "[VMCallBack]\n01=F|F\n10=F|F\n");
}

}  // namespace
}  // namespace tarvok::test
