#include "sections/check.h"

#include <gtest/gtest.h>

#include "store/field_list.h"
#include "store/ini_edit.h"
#include "tests/contract/statement_values.h"
#include "tests/source_file.h"

namespace tarvok::test {
namespace {

/** A key that is written into the example; with a field, from 1, in that field of its row alone. */
struct Change {
  std::string section;
  std::string key;
  int field;
  std::string value;
};

std::string Changed(const IniText& base, const Change& c) {
  IniEdit edit(base);
  edit.Set(c.section, c.key, c.field == 0 ? c.value : SetField(edit.Get(c.section, c.key), c.field, c.value));
  return edit.Bytes();
}

std::vector<std::string> Lines(const IniText& project) {
  std::vector<std::string> lines;
  for (const Finding& finding : CheckProject(project)) {
    lines.push_back(finding.section + " " + finding.key + " " + finding.field + ": " + finding.what);
  }
  return lines;
}

TEST(Check, TheExampleIsClean) {
  EXPECT_EQ(Lines(IniText(SourceFile("/examples/hotel.tvk"))), std::vector<std::string>());
}

TEST(Check, TellsEachFault) {
  const struct {
    Change change;
    std::string what;  // field and fault; "" where an editor or a load could have written it
  } cases[] = {
      // Ranges, lengths, characters, choices, padding.
      {{"Port_Def", "060", 6, "120"}, "Pickup Group: 120 is not between 1 and 99"},
      {{"Port_Def", "060", 3, "15"}, "Type: 15 is none of its values"},
      {{"Port_Def", "060", 10, "1234567890123"}, "Disa: 1234567890123 has more than 12 characters"},
      {{"Port_Def", "060", 12, "12*"}, "Ext: 12* holds the character *"},
      {{"Port_Def", "060", 7, "3"}, "Incoming D: 3 is not padded as 003"},
      {{"Port_Def", "060", 9, "0"}, ""},
      {{"Account", "001", 3, "132"}, ""},
      {{"E1Number", "01", 1, "1"}, ""},
      {{"PortConfig", "02", 7, "-1"}, "CO Timeout: -1 is not a number"},
      {{"PortConfig", "02", 19, "255"}, ""},
      {{"PortConfig", "02", 19, "17"}, "Ring Transfer Timeout: 17 is not between 0 and 16"},
      {{"Name", "003", 0, "Room one hundred"}, "Name: Room one hundred has more than 15 characters"},
      {{"Route", "004", 6, "0860"}, "Start Time: 0860 is not a time"},
      {{"SystemConfig", "Mon", 2, "2400"}, "Night Time: 2400 is not a time"},
      {{"SystemConfig", "W03", 1, "13"}, "Month: 13 is not between 1 and 12"},
      {{"SystemConfig", "Pbx", 2, "2"}, "Check Credit: 2 is neither 0 nor 1"},
      {{"SystemConfig", "Billing", 12, "655.01"}, "Incoming Rate: 655.01 is not between 0.00 and 655.00"},
      {{"SystemConfig", "Billing", 6, "1,5"}, "Long Distance Charge %: 1,5 is not an amount"},
      {{"IP", "MAC", 1, "FF"}, "MAC 1: FF is not between 0 and 254"},
      {{"IP", "MAC", 1, "G1"}, "MAC 1: G1 is not a hexadecimal number"},
      {{"Tenan", "103", 0, "111"}, "Columns 16 to 1: 111 is not 16 digits 0 or 1"},
      {{"Key", "01", 1, "XX5"}, "Key 1: XX5 has no code that is known"},
      {{"Key", "01", 2, "ML1"}, "Key 2: ML1 stands in this row twice"},
      {{"Key", "01", 4, "TR1234567,1"}, "Key 4: 1234567 has more than 6 characters"},
      {{"DSS", "01", 1, "GO1"}, "DSS 1: GO1 has no code that is known"},
      {{"Incoming_List", "01", 2, "2000"}, ""},
      {{"Route_Map_Digit", "005", 5, "255"}, ""},
      // Rows: their fields, and what is no row.
      {{"Port_Def", "060", 0, "5|10|14"}, "row: has 3 fields, not 23"},
      {{"BOSS", "01", 0, "051||052"}, "row: has an empty field, so that those behind it move up"},
      {{"BOSS", "01", 0, "051|052|"}, ""},
      {{"Route_Map_Digit", "005", 0, "0016X|0|04"}, ""},
      {{"COR", "01", 0, "00900|"}, "Ban Number 2: is empty"},
      {{"COR_Group", "01", 0, "01|02|03|04|05|06|07|01|02"}, "row: has 9 fields, not 8"},
      {{"Port_Def", "501", 0, "1|1|1"}, "row: is no row of this section"},
      {{"Port_Deff", "-", 0, "1|1|1"}, "section: is no section of a project"},
      // What stands only once.
      {{"Port_Def", "060", 2, "4"}, "card and channel: 5/4 stands in row 054, too"},
      {{"Port_Def", "060", 16, "123"}, "number: 123 stands in row 043, too"},
      {{"Assign", "003", 1, "101"}, "number: 101 stands in row 002, too"},
      {{"Assign", "003", 3, "083"}, "port: 83 stands in row 002, too"},
      {{"Account", "002", 1, "710510"}, "account: 710510 stands in row 001, too"},
      {{"Group_Out", "04", 0, "036"}, ""},
      {{"Group_Out", "04", 0, "001"}, "port: 1 stands in row 01, too"},
      // References that point nowhere.
      {{"HuntGroup", "01", 0, "123|124|499"}, "Member 3: 499 points nowhere: Number 499 is empty"},
      {{"Route", "001", 1, "09"}, "Group: 09 points nowhere: Group Out 09 is empty"},
      {{"Route_Map_Digit", "005", 3, "09"}, "Route List: 09 points nowhere: List 09 is empty"},
      {{"Route_Map_Digit", "005", 3, "51"}, "Route List: 51 is not between 1 and 50"},
      {{"Port_Def", "060", 8, "050"}, "Incoming N: 050 points nowhere: Incoming List 50 is empty"},
      {{"Assign", "002", 3, "400"}, "Value: 400 points nowhere: Port 400 is empty"},
      {{"Assign", "001", 3, "15"}, "Value: 15 points nowhere: Hunt Group 15 is empty"},
      {{"Assign", "002", 5, "490"}, "Name: 490 points nowhere: Name 490 is empty"},
      {{"COR_Group", "01", 0, "09"}, "COR Number 1: 09 points nowhere: COR 09 is empty"},
      {{"PortConfig", "01", 1, "09"}, "Class of Servrice Day: 09 points nowhere: COR Group 09 is empty"},
      {{"Key", "02", 10, "GO9"}, "Key 10: 9 points nowhere: Group Out 09 is empty"},
      {{"E1Map", "01", 2, "031"}, "End: 031 points at Port 031, which has another Type"},
      {{"DIDRedirect", "001", 1, "7"}, "E1: 7 points nowhere: E1 07 is empty"},
      {{"DIDRedirect", "002", 5, "123"}, "Map Number: 123 stands where nothing does with this Map Type"},
      {{"Port_Def", "060", 4, "19"}, ""},  // a profile of nothing but defaults has no row
      // Counts and ends.
      {{"Assign", "Now", 0, "20"}, "row: is 20, but row 187 is in use"},
      {{"HuntGroup", "Now", 0, "21"}, "row: is 21, but there are 22 members"},
      {{"Group_Out", "Now", 0, "41"}, "row: is 41, but there are 40 members"},
      {{"Route_List", "08", 0, "9"}, "End: 9 lies in front of the end before it, 12"},
      {{"Route", "012", 0, "01|0|0|F|F|F|F|F|F"}, "row: lies behind the last List"},
      {{"Route", "005", 0, ""}, "row: is missing in a List"},
  };
  const IniText hotel(SourceFile("/examples/hotel.tvk"));
  for (const auto& c : cases) {
    const std::vector<std::string> lines = Lines(IniText(Changed(hotel, c.change)));
    const std::string row = c.change.section + " " + c.change.key + " ";
    EXPECT_EQ(lines, c.what.empty() ? std::vector<std::string>() : std::vector{row + c.what})
        << c.change.value;
  }
}

}  // namespace
}  // namespace tarvok::test
