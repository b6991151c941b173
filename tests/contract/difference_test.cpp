#include "sections/difference.h"

#include <gtest/gtest.h>

#include "store/field_list.h"
#include "store/ini_edit.h"
#include "tests/contract/statement_values.h"
#include "tests/source_file.h"

namespace tarvok::test {
namespace {

using Kind = Difference::Kind;

std::vector<std::string> Lines(const IniText& first, const IniText& second) {
  std::vector<std::string> lines;
  for (const Difference& d : CompareProjects(first, second)) {
    lines.push_back(d.row + (d.field.empty() ? "" : " . " + d.field) + ": " +
                    (d.kind == Kind::kOnlyInFirst    ? "only " + d.before
                     : d.kind == Kind::kOnlyInSecond ? "new " + d.after
                                                     : d.before + " -> " + d.after));
  }
  return lines;
}

TEST(Difference, TellsEachChangeInWords) {
  const struct {
    std::string section;
    std::string key;
    int field;  // from 1; 0 for the whole value
    std::string value;
    std::string line;  // "" where the value means the same as the example's
  } cases[] = {
      {"Port_Def", "054", 6, "9", "Port 054 (card 5, channel 4) . Pickup Group: 2 -> 9"},
      {"Port_Def", "054", 1, "15", "Port 054 (card 5, channel 4) . Card: 5 -> 15"},
      {"Port_Def", "001", 7, "006", "Port 001 (card 1, channel 1) . Incoming D: Direct dial -> Reception"},
      {"Port_Def", "001", 9, "1", "Port 001 (card 1, channel 1) . DND: (blank) -> DND"},
      {"Port_Def", "001", 9, "0", ""},
      {"Port_Def", "001", 3, "1", "Port 001 (card 1, channel 1) . Type: E1 -> SLIC 16"},
      {"Port_Def", "001", 99, "", ""},
      {"Port_Def", "400", 0, "16|1|12|F|F|3",
       "Port 400 (card 16, channel 1): new Type SLIC 08, Pickup Group 3"},
      {"Port_Def", "400", 0, "F|F|F|F|F|F|F|F|0|F|F|F|F|F|F|F|F|F|F|F|F|F|F", ""},
      {"Assign", "002", 3, "084", "Number 002 (101) . Value: 8/1 -> 8/2"},
      {"Assign", "001", 3, "2", "Number 001 (100) . Value: 1 -> 2"},
      {"Assign", "002", 5, "003", "Number 002 (101) . Name: Room 101 -> Room 102"},
      {"Assign", "Now", 0, "400", "Assign Now: 500 -> 400"},
      {"Name", "002", 0, "Suite", "Name 002 (Room 101) . Name: Room 101 -> Suite"},
      {"Name", "188", 0, "Sauna", "Name 188 (Sauna): new "},
      {"Account", "001", 3, "133", "Account 001 (710510) . Number: 510 -> 511"},
      {"Account", "001", 6, "07200", ""},
      {"Account", "003", 0, "",
       "Account 003 (710514): only Password 0815, Number 514, Config 3, Tenan 1, Time (sec) 3600"},
      {"PortConfig", "02", 19, "8", "Profile 02 . Ring Transfer Timeout: 6 -> (blank)"},
      {"PortConfig", "07", 19, "256", ""},
      {"PortConfig", "20", 0, "F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0", ""},
      {"HuntGroup", "01", 0, "123|124", "Hunt Group 01 . Member: 501, 502, 503 -> 501, 502"},
      {"HuntGroup", "01", 0, "123|124|125|", ""},
      {"COR", "01A", 0, "", "COR 01: only Allow Number 011880"},
      {"COR", "01", 0, "00900|00137|0118|",
       "COR 01 . Ban Number: 00900, 00137, 0118 -> 00900, 00137, 0118, "},
      {"Key", "01", 4, "EX505", "Layout 01 . Key 4: EX504 -> EX505"},
      {"Tenan", "103", 0, "1111111111111111", "Tenan Day 3 . Column 2: 0 -> 1"},
      {"Route", "004", 1, "02", "Route 004 . Group: Group Out 1 -> Group Out 2"},
      {"Route", "004", 3, "F", ""},
      {"Route_Map_Digit", "005", 3, "101", "Route Map Digit 005 (0016X) . Route List: List 4 -> Extension"},
      {"Route_Map_Digit", "150", 0, "", ""},
      {"DIDRedirect", "002", 4, "3",
       "DID Redirect 002 (from 101, to 430) . Map Type: Route Digit -> Not Exist"},
      {"BOSS", "01", 2, "053", "Boss and Secretary 01 . SECRETARY: 511 -> 512"},
      {"BOSS", "03", 0, "", ""},
      {"TblRoute", "02", 2, "F", ""},
      {"TblRoute", "01", 0, "", "PBX Link 01: only "},
      {"SystemConfig", "Pbx", 4, "0", "PABX Mode . Check Bad CO: on -> (blank)"},
      {"SystemConfig", "Billing", 12, "0.00", ""},
      {"SystemConfig", "W03", 1, "11", "Holiday 03 . Month: 10 -> 11"},
      {"IP", "MAC", 1, "1a", ""},
      {"Chk_Tarvok", "Chk", 0, "tarvok", ""},
      {"Chk_Tarvok", "By", 0, "1", "Chk_Tarvok By: 4 -> 1"},
      {"Nonsense", "key", 0, "x", "Nonsense key: new x"},
  };
  const IniText hotel(SourceFile("/examples/hotel.tvk"));
  for (const auto& c : cases) {
    IniEdit edit(hotel);
    edit.Set(c.section, c.key,
             c.field == 0 ? c.value : SetField(edit.Get(c.section, c.key), c.field, c.value));
    const IniText changed(edit.Bytes());
    const std::vector<std::string> expected =
        c.line.empty() ? std::vector<std::string>() : std::vector{c.line};
    EXPECT_EQ(Lines(hotel, changed), expected) << c.section << " " << c.key << " " << c.value;
    EXPECT_EQ(Lines(changed, hotel).size(), expected.size());
  }
}

}  // namespace
}  // namespace tarvok::test
