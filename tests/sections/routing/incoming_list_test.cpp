#include "sections/routing/incoming_list.h"

#include "tests/sections/record_case.h"

namespace tarvok::test {
namespace {

const Place kRow = {"Incoming_List", "07", 350, 42};

TEST(IncomingList, RecordOfARow) {
  ExpectRecords(EncodeIncomingList, kRow,
                {{"", "FF*7"},
                 {"Reception|F|F|F|F", "FF*7"},
                 {"Bar|012|500|0|254", "0B 00 F3 01 FF FF FE"},
                 {"A|1000|1000|1000|F", "01 A0 E7 03 E7 03 FF"},
                 {"A|2000|2000|2000|0", "01 B0 CF 07 CF 07 00"},
                 {"A|3000|3000|3000|5", "00 E0 B7 0B B7 0B 05"},
                 {"A|x|-1", "FF*7"}});
  ExpectErrors(EncodeIncomingList, kRow,
               {{"A|1|1|65536", "Num3: value 65536"}, {"A|1|1|1|256", "Time Out: value 256"}});
}

TEST(IncomingList, RowOfARecord) {
  ExpectRows(DecodeIncomingList, kRow,
             {{"", "FF*7"},
              {"F|F|F|F|5", "FF*6 05"},
              {"Incom7|012|F|F|F", "0B 00 FF FF FF FF FF"},
              {"Incom7|1000|2000|3000|254", "01 A0 01 B0 00 E0 FE"},
              // A high byte of 255 alone is a number like any other.
              {"Incom7|1000|65535|65286|0", "E7 03 FE FF 05 FF 00"},
              {"Incom7|001|001|001|0", "00*7"}});
  const IniText unused = Decoded(DecodeIncomingList, Hex("FF*350"));
  ExpectKeys(unused, "[Incoming_List]\nMax=50\nNow=50\n");
}

}  // namespace
}  // namespace tarvok::test
