#include "sections/ports/boss.h"
#include "sections/ports/number_tables.h"
#include "sections/ports/vm_call_back.h"
#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

/** A table of rows of one record each, and what a row of it is on the wire and back. */
struct SmallTable {
  Encoder encode;
  Decoder decode;
  std::string section;
  int rows;
  int record;
  std::string unused;      // image of a missing row
  std::string unused_row;  // what it loads as
};

const SmallTable kBoss = {EncodeBoss, DecodeBoss, "BOSS", 20, 4, "FF*4", "F|F"};
const SmallTable kLinkTrunk = {EncodeLinkTrunk, DecodeLinkTrunk, "LinkTrunk", 30, 8, "00*8", ""};
const SmallTable kDialPhone = {EncodeDialPhone, DecodeDialPhone, "DialPhone", 24, 4, "00*4", ""};
const SmallTable kCallBack = {EncodeVMCallBack, DecodeVMCallBack, "VMCallBack", 10, 8, "00*8", "F|F"};

TEST(SmallTables, ImageOfARow) {
  const std::tuple<const SmallTable&, std::string, std::string> cases[] = {
      {kBoss, "001|F", "00 00 FF FF"},
      {kBoss, "256|500", "FF 00 F3 01"},
      {kBoss, "0|x", "FF*4"},
      {kBoss, "007", "06 00 FF FF"},
      {kBoss, "1|65536", "section BOSS, row 02, field SECRETARY: value 65536" + kTooLarge},
      {kLinkTrunk, "1020", "1A 2A 00*6"},
      {kLinkTrunk, "12345678901234567", "12 34 56 78 9A 12 34 56"},
      {kLinkTrunk, "F", "00*8"},
      {kLinkTrunk, "12|34", "section LinkTrunk, row 02, field Number: value 12|34" + kNotDialled},
      {kDialPhone, "123456789", "12 34 56 78"},
      {kDialPhone, "1#", "section DialPhone, row 02, field Number: value 1#" + kNotDialled},
      {kCallBack, "12345|*#", "31 32 33 34 2A 23 00 00"},
      {kCallBack, "0|", "30 00*7"},
      {kCallBack, "F|00", "00*4 30 30 00 00"},
  };
  for (const auto& [table, row, image] : cases) {
    const int size = table.rows * table.record;
    const std::string project = "[" + table.section + "]\n02= " + row + " \n99=1";
    ExpectImage(table.encode, size, project, table.record, image);
    if (image.starts_with("section")) continue;
    ExpectImage(table.encode, size, project, 0, table.unused);
    ExpectImage(table.encode, size, project, size - table.record, table.unused);
  }
}

TEST(SmallTables, RowOfAnImage) {
  const std::tuple<const SmallTable&, std::string, std::string> cases[] = {
      {kBoss, "00 00 FF FF", "001|F"},
      {kBoss, "F3 01 05 FF", "500|65286"},
      {kBoss, "FF*4", "F|F"},
      {kBoss, "00*4", "001|001"},
      {kLinkTrunk, "1A 2A 00*6", "1020"},
      {kLinkTrunk, "12 00 3A FF 40 56 00 00", "12304"},
      {kLinkTrunk, "FF*8", ""},
      {kDialPhone, "12 34 56 78", "12345678"},
      {kDialPhone, "00*4", ""},
      {kCallBack, "31 32 33 34 2A 23 00 00", "1234|*#"},
      {kCallBack, "20 20 00 00 00 37 FF 38", "F|78"},
      {kCallBack, "FF*8", "F|F"},
  };
  for (const auto& [table, record, row] : cases) {
    SCOPED_TRACE(table.section + " " + record);
    const int size = table.rows * table.record;
    std::vector<std::uint8_t> image;
    while (static_cast<int>(image.size()) < size) {
      const auto unused = Hex(table.unused);
      image.insert(image.end(), unused.begin(), unused.end());
    }
    const auto second = Hex(record);
    std::copy(second.begin(), second.end(), image.begin() + table.record);
    const IniText project = Decoded(table.decode, image, "[" + table.section + "]\n01=old\n");
    ExpectKeys(project, "[" + table.section + "]\n01=" + table.unused_row + "\n02=" + row + "\n");
    EXPECT_EQ(project.Keys(table.section).size(), static_cast<std::size_t>(table.rows));
  }
}

}  // namespace
}  // namespace tarvok::test
