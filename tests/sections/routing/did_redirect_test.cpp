#include "sections/routing/did_redirect.h"

#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

const Place kRow = {"DIDRedirect", "400", 2800, 399 * 7};

TEST(DidRedirect, RecordOfARow) {
  ExpectRecords(EncodeDIDRedirect, kRow,
                {{"", "FF*7"},
                 {"F|F|F|F|F", "FF*7"},
                 {"1|0012|9999|0|010", "0C 00 0F 27 00 09 00"},
                 {"10|0|65535|1|03", "00 00 FF FF 09 02 A0"},
                 {"F|F|F|2|F", "FF FF FF FF FF 00 B0"},
                 {"0|1|F|3|012", "01 00 FF FF FF 00 C0"},
                 {"1|1|1|4|F", "01 00 01 00 00 00 D0"},
                 {"1|1|1|5|7", "01 00 01 00 00 FF FF"},
                 // A number or list that is not there.
                 {"1|1|1|0|F", "01 00 01 00 00 FF FF"},
                 {"1|1|1|1|0", "01 00 01 00 00 FF FF"},
                 {"1|1|1|1", "01 00 01 00 00 FF FF"},
                 {"1|1|1|0|40960", "01 00 01 00 00 FF 9F"},
                 {"1|1|1|1|4096", "01 00 01 00 00 FF AF"}});
  ExpectErrors(EncodeDIDRedirect, kRow,
               {{"1|65536|1|0|001", "DID Start: value 65536"},
                {"1|1|-1|0|001", "DID End: value -1", "is negative"},
                {"256|1|1|0|001", "E1: value 256"},
                // These would reach into the range of the next type.
                {"1|1|1|0|40961", "Map Number: value 40961"},
                {"1|1|1|1|4097", "Map Number: value 4097"}});
}

TEST(DidRedirect, RowOfARecord) {
  ExpectRows(DecodeDIDRedirect, kRow,
             {{"", "FF*7"},
              {"", "05 FF 00 FF FF 05 FF"},
              {"1|12|9999|0|010", "0C 00 0F 27 00 09 00"},
              {"F|F|F|1|03", "FF FF FF FF FF 02 A0"},
              {"F|F|F|0|40960", "FF FF FF FF FF FF 9F"},
              {"F|F|F|1|4096", "FF FF FF FF FF FF AF"},
              {"F|F|F|2|F", "FF FF FF FF FF FF BF"},
              {"F|F|F|3|F", "FF FF FF FF FF FF CF"},
              {"F|F|F|4|F", "FF FF FF FF FF 00 D0"},
              {"10|65279|F|4|F", "FF FE FF FF 09 FF FE"},
              {"1|0|0|0|001", "00*7"}});
  EXPECT_EQ(Decoded(DecodeDIDRedirect, {}).Get("DIDRedirect", "Max"), "400");
}

}  // namespace
}  // namespace tarvok::test
