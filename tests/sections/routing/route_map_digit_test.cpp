#include "sections/routing/route_map_digit.h"

#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

const Place kShort = {"Route_Map_Digit", "200", 4400, 199 * 22};
const Place kLong = {"Route_Map_Digit", "200", 4600, 199 * 23};
const Place kLimit = {"Route_Map_Digit", "200", 200, 199};

TEST(RouteMapDigit, RecordOfARow) {
  const std::string twenty = "31 32 33 34 35 36 37 38 39 30 31 32 33 34 35 36 37 38 39 30";
  ExpectRecords(EncodeRouteMapDigit22, kShort,
                {{"", "00*20 FF FF"},
                 {"F|F|F|F|0", "00*20 FF FF"},
                 {"*1#|1|07|1|254", "2A 31 23 00*17 01 06"},
                 {"9NX:;<|0|101|0|255", "39 4E 58 3A 3B 3C 00*14 00 65"},
                 {"123456789012345678901|F|0|F|F", twenty + " FF FF"},
                 // A Send Number that is missing is 0, only "F" is 255.
                 {"5", "35 00*19 00 FF"}});
  ExpectRecords(EncodeRouteMapDigit23, kLong,
                {{"", "00*20 FF FF FF"},
                 {"*1#|1|07|1|254", "3B 31 3C 00*17 01 06 01"},
                 {"9NX:;<|0|101|0|255", "39 4E 58 3A 3B 3C 00*14 00 65 00"},
                 {"F|1|x|x|F", "00*20 01 FF 00"},
                 {"1|F|50", "31 00*19 FF 31 FF"}});
  // Rows without a limit are 0, unused ones 255; an old exchange leaves three fields.
  ExpectRecords(EncodeRouteTimeLimit, kLimit,
                {{"", "FF"},
                 {"F|F|F|F|0", "00"},
                 {"1|F|F", "00"},
                 {"1|F|F|F|F", "00"},
                 {"1|1|1|1|254", "FE"},
                 {"1|1|1|1|255", "FF"}});
  EXPECT_EQ(Part(Encoded(EncodeRouteMapDigit23, 4600, ""), 0, 23), Hex("00*20 FF FF FF"));
}

TEST(RouteMapDigit, ErrorsNameTheField) {
  ExpectErrors(EncodeRouteMapDigit22, kShort,
               {{"1|256|01", "Send Number: value 256"}, {"1|1|256", "Route List: value 256"}});
  ExpectErrors(EncodeRouteMapDigit23, kLong, {{"1|1|1|-1", "Release CO: value -1", "is negative"}});
  ExpectErrors(EncodeRouteTimeLimit, kLimit, {{"1|1|1|1|256", "Timeout: value 256"}});
}

TEST(RouteMapDigit, RowOfARecord) {
  ExpectRows(DecodeRouteMapDigit22, kShort,
             {{"*1;|1|07", "2A 31 3B 00*17 01 06"},
              {std::string(20, '\xFF') + "|F|F", "FF*22"},
              {"", "00*20 FF FF"},
              {"F|0|01", "00*22"}});
  ExpectRows(DecodeRouteMapDigit23, kLong,
             {{"*1#|0|101|1", "3B 31 3C 00*17 00 65 01"},
              // A gap between digits closes up, blanks at the ends go.
              {"12|F|50|F", "00 20 31 00 32 20 00*14 FF 31 FF"},
              {"", "20*20 FF FF FF"},
              {"F|F|F|0", "00*20 FF FF 00"},
              {"F|2|255|254", "00*20 02 FE FE"}});
  EXPECT_EQ(Decoded(DecodeRouteMapDigit23, {}).Get("Route_Map_Digit", "Max"), "200");
}

TEST(RouteMapDigit, TimeLimitsGoToTheRowsThatAreThere) {
  const IniText project = Decoded(DecodeRouteTimeLimit, Hex("00 FF 07"),
                                  "[Route_Map_Digit]\n001=1|F|F|F\n002=2|F|F|F\n004=4|F|F|F");
  ExpectKeys(project, "[Route_Map_Digit]\n001=1|F|F|F|0\n002=2|F|F|F|255\n004=4|F|F|F|0\n");
  EXPECT_EQ(project.Keys("Route_Map_Digit").size(), 3U);
}

}  // namespace
}  // namespace tarvok::test
