// Routing sections with one record per row.

#include "sections/routing/incoming_list.h"
#include "sections/routing/route.h"
#include "sections/routing/route_list.h"
#include "sections/routing/route_map_digit.h"
#include "sections/routing/tbl_route.h"
#include "tests/floors.h"
#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

TEST(RouteList, EncodesAndDecodesEnds) {
  // When decoding, a high byte of 255 alone does not mean unset.
  ExpectCoded({EncodeRouteList, DecodeRouteList, "Route_List", "50", 100, 98},
              {{"", "00 00", kOut},
               {"0", "00 00", kOut},
               {"F", "00 00", kOut},
               {"-3", "00 00", kOut},
               {"1", "00 00"},
               {"257", "00 01"},
               {"65281", "00 FF"},
               {"65535", "FE FF"},
               {"65536", "FF FF", kOut},
               {"0", "FF FF", kBack},
               {"65537", "End: value 65537" + kTooLarge}});
  EXPECT_EQ(Decoded(DecodeRouteList, {}).Get("Route_List", "Max"), "50");
}

TEST(Route, EncodesAndDecodesRows) {
  ExpectCoded(
      {EncodeRoute, DecodeRoute, "Route", "008", 9800, 7 * 49},
      {{"", "FF*9 00*40"},
       {"F|F|0|F|F|F|F|F|F", "FF*9 00*40", kOut},
       {"01|0|1|9|1|0005|2359|P5*#|1N", "00 00 00 09 01 00 05 23 59 50 35 2A 23 00*16 31 4E 00*18"},
       {"32|3|7|31|12|0830|F|123456789012345678901|A",
        "1F 03 06 31 12 08 30 FF FF 31 32 33 34 35 36 37 38 39 30 31 32 33 34 35 36 37 38 39 30 41 00*19",
        kOut},
       // In a time of three digits the pairs overlap; one digit is both pairs.
       {"0|F|F|A|1F|830|7", "FF FF FF 0A 1F 83 30 07 07 00*40", kOut},
       {"02", "01 FF*8 00*40", kOut},
       // A row without a group is removed.
       {"", "FF 01 02 03 04 05 06 07 08 31*40", kBack},
       {"32|F|0|F|F|F|F|1|;1", "1F FF FF FF FF FF 30 08 FF 20 00 31 20 00*16 00 3B 00 31 00*16", kBack},
       // Characters that would end the row or shift its fields are dropped.
       {"01|0|1|0|0|0000|0000|12|F", "00*9 0D 31 7C 0A 32 09 20 00*13 7C 1F 20 00*17", kBack},
       {"01|4|8|A|31|0A0B|0000|F|F", "00 04 07 0A 31 0A 0B 00 00 00*40"},
       {"01|0|1|0|0|0000|0000|F|F", "00*49"},
       {"1|0|0|100", "Date: value 100" + kTooLarge}});
  EXPECT_EQ(Decoded(DecodeRoute, {}).Get("Route", "Max"), "200");
}

constexpr const char* kSection = "Route_Map_Digit";

TEST(RouteMapDigit, EncodesAndDecodesEachLayout) {
  const std::string twenty = "31 32 33 34 35 36 37 38 39 30 31 32 33 34 35 36 37 38 39 30";
  ExpectCoded({EncodeRouteMapDigit22, DecodeRouteMapDigit22, kSection, "200", 4400, 199 * 22},
              {{"", "00*20 FF FF"},
               {"F|F|F|F|0", "00*20 FF FF", kOut},
               {"*1#|1|07|1|254", "2A 31 23 00*17 01 06", kOut},
               {"9NX:;<|0|101|0|255", "39 4E 58 3A 3B 3C 00*14 00 65", kOut},
               {"123456789012345678901|F|0|F|F", twenty + " FF FF", kOut},
               // A Send Number that is missing is 0, only "F" is 255.
               {"5", "35 00*19 00 FF", kOut},
               {"*1;|1|07", "2A 31 3B 00*17 01 06"},
               {std::string(20, '\xFF') + "|F|F", "FF*22", kBack},
               {"F|0|01", "00*22"},
               {"1 \xA0|0|01", "09 0D 31 0A 20 7C A0 1B 00*14", kBack},
               {"", "7C 01 00*18 FF FF", kBack}});
  ExpectCoded({EncodeRouteMapDigit23, DecodeRouteMapDigit23, kSection, "200", 4600, 199 * 23},
              {{"", "00*20 FF FF FF"},
               {"*1#|1|07|1|254", "3B 31 3C 00*17 01 06 01", kOut},
               {"*1#|0|101|1", "3B 31 3C 00*17 00 65 01"},
               {"9NX:;<|0|101|0|255", "39 4E 58 3A 3B 3C 00*14 00 65 00", kOut},
               {"F|1|x|x|F", "00*20 01 FF 00", kOut},
               {"1|F|50", "31 00*19 FF 31 FF", kOut},
               // Gaps between digits are closed and blanks at the ends are dropped.
               {"12|F|50|F", "00 20 31 00 32 20 00*14 FF 31 FF", kBack},
               {"", "20*20 FF FF FF", kBack},
               {"*1#|F|50|F", "7C 3B 0D 31 0A 7C 3C 00*13 FF 31 FF", kBack},
               {"F|F|F|0", "00*20 FF FF 00"},
               {"F|2|255|254", "00*20 02 FE FE"},
               {"1|1|1|-1", "Release CO: value -1" + kNegative}});
  // Rows without a limit are 0, unused rows 255. An old exchange gives three fields.
  ExpectCoded({EncodeRouteTimeLimit, DecodeRouteTimeLimit, kSection, "200", 200, 199},
              {{"", "FF", kOut},
               {"F|F|F|F|0", "00", kOut},
               {"1|F|F", "00", kOut},
               {"1|F|F|F|F", "00", kOut},
               {"1|1|1|1|254", "FE", kOut},
               {"1|1|1|1|255", "FF", kOut}});
  EXPECT_EQ(Decoded(DecodeRouteMapDigit23, {}).Get(kSection, "Max"), "200");
}

TEST(RouteMapDigit, AddsTimeLimitsToExistingRowsOnly) {
  const IniText project = Decoded(DecodeRouteTimeLimit, Hex("00 FF 07"),
                                  "[Route_Map_Digit]\n001=1|F|F|F\n002=2|F|F|F\n004=4|F|F|F");
  ExpectKeys(project, "[Route_Map_Digit]\n001=1|F|F|F|0\n002=2|F|F|F|255\n-003\n004=4|F|F|F|0\n-200\n");
}

TEST(IncomingList, EncodesAndDecodesRows) {
  ExpectCoded({EncodeIncomingList, DecodeIncomingList, "Incoming_List", "07", 350, 42},
              {{"", "FF*7"},
               {"Reception|F|F|F|F", "FF*7", kOut},
               {"Bar|012|500|0|254", "0B 00 F3 01 FF FF FE", kOut},
               {"Incom7|012|F|F|F", "0B 00 FF FF FF FF FF"},
               {"A|1000|1000|1000|F", "01 A0 E7 03 E7 03 FF", kOut},
               {"A|2000|2000|2000|0", "01 B0 CF 07 CF 07 00", kOut},
               {"A|3000|3000|3000|5", "00 E0 B7 0B B7 0B 05", kOut},
               {"A|x|-1", "FF*7", kOut},
               {"F|F|F|F|5", "FF*6 05"},
               {"Incom7|1000|2000|3000|254", "01 A0 01 B0 00 E0 FE", kBack},
               // A high byte of 255 alone does not mean unset.
               {"Incom7|1000|65535|65286|0", "E7 03 FE FF 05 FF 00", kBack},
               {"Incom7|001|001|001|0", "00*7"}});
  ExpectKeys(Decoded(DecodeIncomingList, Hex("FF*350")), "[Incoming_List]\nMax=50\nNow=50\n");
}

TEST(TblRoute, EncodesAndDecodesKeys) {
  EXPECT_EQ(Encoded(EncodeTblRoute, 18, "").bytes(), Hex("00 00 10*16"));
  ExpectCoded({EncodeTblRoute, DecodeTblRoute, "TblRoute", "PID", 18, 0}, {{"", "00", kOut},
                                                                           {"0", "00"},
                                                                           {"14", "0E"},
                                                                           {"F", "00", kOut},
                                                                           {"0", "0F", kBack},
                                                                           {"0", "FF", kBack}});
  ExpectCoded({EncodeTblRoute, DecodeTblRoute, "TblRoute", "GW", 18, 1},
              {{"", "00", kOut},
               {"0", "01", kOut},
               {"15", "0F"},
               {"255", "FF", kOut},
               {"256", "01", kOut},
               {"0", "10", kBack},
               {"0", "00", kBack},
               {"0", "FF", kBack},
               {"-1", "Gateway: value -1" + kNegative}});
  // Loads write 10 to 15 as letters, which count as 0. A card of 16 would set a bit of the device.
  ExpectCoded({EncodeTblRoute, DecodeTblRoute, "TblRoute", "04", 18, 5},
              {{"", "10", kOut},
               {"F|F", "00", kOut},
               {"5|2", "25"},
               {"7|F", "07", kOut},
               {"7|0", "07"},
               {"F|1", "10", kOut},
               {"0|1", "10"},
               {"15|15", "FF", kOut},
               {"A|1", "10", kOut},
               {"3|B", "03", kOut},
               {"9", "09", kOut},
               {"0|0", "00"},
               {"F|F", "FF", kBack},
               {"0|A", "A0", kBack},
               {"16|0", "Card ID: value 16" + kTooLarge},
               {"1|16", "Device: value 16" + kTooLarge},
               {"-1|1", "Card ID: value -1" + kNegative}});
}

}  // namespace
}  // namespace tarvok::test
