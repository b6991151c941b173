#include "sections/routing/tbl_route.h"

#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

const Place kPid = {"TblRoute", "PID", 18, 0};
const Place kGateway = {"TblRoute", "GW", 18, 1};
const Place kRow = {"TblRoute", "04", 18, 5};

TEST(TblRoute, ImageOfAProject) {
  EXPECT_EQ(Encoded(EncodeTblRoute, 18, "").bytes(), Hex("00 00 10*16"));
  ExpectRecords(EncodeTblRoute, kPid, {{"", "00"}, {"0", "00"}, {"14", "0E"}, {"F", "00"}});
  ExpectRecords(EncodeTblRoute, kGateway,
                {{"", "00"}, {"0", "01"}, {"15", "0F"}, {"255", "FF"}, {"256", "01"}});
  // Letters are a load's spelling of 10 to 15 and count 0.
  ExpectRecords(EncodeTblRoute, kRow,
                {{"", "10"},
                 {"F|F", "00"},
                 {"5|2", "25"},
                 {"7|F", "07"},
                 {"F|1", "10"},
                 {"15|15", "FF"},
                 {"A|1", "10"},
                 {"3|B", "03"},
                 {"9", "09"}});
}

TEST(TblRoute, ErrorsNameTheField) {
  ExpectErrors(EncodeTblRoute, kPid, {{"256", "PBX ID: value 256"}});
  ExpectErrors(EncodeTblRoute, kGateway, {{"-1", "Gateway: value -1", "is negative"}});
  // A card of 16 would become one of the device's bits.
  ExpectErrors(EncodeTblRoute, kRow,
               {{"16|0", "Card ID: value 16"},
                {"1|16", "Device: value 16"},
                {"-1|1", "Card ID: value -1", "is negative"}});
}

TEST(TblRoute, KeysOfAnImage) {
  ExpectRows(DecodeTblRoute, kPid, {{"14", "0E"}, {"0", "0F"}, {"0", "00"}, {"0", "FF"}});
  ExpectRows(DecodeTblRoute, kGateway, {{"15", "0F"}, {"0", "10"}, {"0", "00"}, {"0", "FF"}});
  ExpectRows(DecodeTblRoute, kRow,
             {{"5|2", "25"}, {"0|1", "10"}, {"7|0", "07"}, {"0|0", "00"}, {"F|F", "FF"}, {"0|A", "A0"}});
  EXPECT_EQ(Decoded(DecodeTblRoute, {}).Keys("TblRoute").size(), 18U);
}

}  // namespace
}  // namespace tarvok::test
