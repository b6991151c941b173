#include "sections/routing/route.h"

#include "sections/routing/route_list.h"
#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

const Place kList = {"Route_List", "50", 100, 98};
const Place kRoute = {"Route", "008", 9800, 7 * 49};

TEST(RouteList, EndsBothWays) {
  ExpectRecords(EncodeRouteList, kList,
                {{"", "00 00"},
                 {"0", "00 00"},
                 {"F", "00 00"},
                 {"-3", "00 00"},
                 {"1", "00 00"},
                 {"3", "02 00"},
                 {"257", "00 01"},
                 {"65536", "FF FF"}});
  ExpectErrors(EncodeRouteList, kList, {{"65537", "End: value 65537"}});
  // A high byte of 255 alone is an end like any other.
  ExpectRows(DecodeRouteList, kList,
             {{"1", "00 00"}, {"257", "00 01"}, {"65281", "00 FF"}, {"65535", "FE FF"}, {"0", "FF FF"}});
  EXPECT_EQ(Decoded(DecodeRouteList, {}).Get("Route_List", "Max"), "50");
}

TEST(Route, RecordOfARow) {
  ExpectRecords(
      EncodeRoute, kRoute,
      {{"", "FF*9 00*40"},
       {"F|F|0|F|F|F|F|F|F", "FF*9 00*40"},
       {"01|0|1|9|1|0005|2359|P5*#|1N", "00 00 00 09 01 00 05 23 59 50 35 2A 23 00*16 31 4E 00*18"},
       {"32|3|7|31|12|0830|F|123456789012345678901|A",
        "1F 03 06 31 12 08 30 FF FF 31 32 33 34 35 36 37 38 39 30 31 32 33 34 35 36 37 38 39 30 41 00*19"},
       // In a time of three digits the pairs overlap; one digit is both pairs.
       {"0|F|F|A|1F|830|7", "FF FF FF 0A 1F 83 30 07 07 00*40"},
       {"02", "01 FF*8 00*40"}});
  ExpectErrors(EncodeRoute, kRoute, {{"1|0|0|100", "Date: value 100"}, {"256", "Group: value 256"}});
}

TEST(Route, RowOfARecord) {
  ExpectRows(DecodeRoute, kRoute,
             {{"01|0|1|9|1|0005|2359|P5*#|1N", "00 00 00 09 01 00 05 23 59 50 35 2A 23 00*16 31 4E 00*18"},
              // Without a group nothing else counts.
              {"", "FF 01 02 03 04 05 06 07 08 31*40"},
              {"32|F|0|F|F|F|F|1|;1", "1F FF FF FF FF FF 30 08 FF 20 00 31 20 00*16 00 3B 00 31 00*16"},
              {"01|4|8|A|31|0A0B|0000|F|F", "00 04 07 0A 31 0A 0B 00 00 00*40"},
              {"01|0|1|0|0|0000|0000|F|F", "00*49"}});
  EXPECT_EQ(Decoded(DecodeRoute, {}).Get("Route", "Max"), "200");
}

}  // namespace
}  // namespace tarvok::test
