// The output of check, comparison and search.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "project/check.h"
#include "project/difference.h"
#include "project/places.h"
#include "project/search.h"
#include "sections/registry.h"
#include "sections/rows.h"
#include "store/number_text.h"
#include "tests/contract/statement_values.h"
#include "tests/floors.h"
#include "tests/matchers.h"
#include "tests/source_file.h"

namespace tarvok::test {
namespace {

std::string Lines(const IniText& project) {
  std::string lines;
  for (const Finding& f : CheckProject(project))
    lines += (lines.empty() ? "" : "\n") + f.section + " " + f.key + " " + f.field + ": " + f.what;
  return lines;
}

TEST(Check, ReportsEachFault) {
  // A key, its field from 1 or 0 for the whole value, and the value; field and fault, or "" if the value is
  // valid.
  const std::tuple<std::string, std::string, int, std::string, std::string> cases[] = {
      // Ranges, lengths, characters, choices, padding.
      {"Port_Def", "060", 6, "120", "Pickup Group: 120 is not between 1 and 99"},
      {"Port_Def", "060", 3, "15", "Type: 15 is not one of its values"},
      {"Port_Def", "060", 10, "1234567890123", "Disa: 1234567890123 has more than 12 characters"},
      {"Port_Def", "060", 12, "12*", "Ext: 12* contains the character *"},
      {"Port_Def", "060", 7, "3", "Incoming D: 3 is not padded as 003"},
      {"Port_Def", "060", 9, "0", ""},
      {"Account", "001", 3, "132", ""},
      {"E1Number", "01", 1, "1", ""},
      {"PortConfig", "02", 7, "-1", "CO Timeout: -1 is not a number"},
      {"PortConfig", "02", 19, "255", ""},
      {"PortConfig", "02", 19, "17", "Ring Transfer Timeout: 17 is not between 0 and 16"},
      {"Name", "003", 0, "Room one hundred", "Name: Room one hundred has more than 15 characters"},
      {"Route", "004", 6, "0860", "Start Time: 0860 is not a time"},
      {"SystemConfig", "Mon", 2, "2400", "Night Time: 2400 is not a time"},
      {"SystemConfig", "W03", 1, "13", "Month: 13 is not between 1 and 12"},
      {"SystemConfig", "Pbx", 2, "2", "Check Credit: 2 is neither 0 nor 1"},
      {"SystemConfig", "Billing", 12, "655.01", "Incoming Rate: 655.01 is not between 0.00 and 655.00"},
      {"SystemConfig", "Billing", 6, "1,5", "Long Distance Charge %: 1,5 is not an amount"},
      {"IP", "MAC", 1, "FF", "MAC 1: FF is not between 0 and 254"},
      {"IP", "MAC", 1, "G1", "MAC 1: G1 is not a hexadecimal number"},
      {"Tenan", "103", 0, "111", "Columns 16 to 1: 111 is not 16 digits 0 or 1"},
      {"Key", "01", 1, "XX5", "Key 1: XX5 has an unknown code"},
      {"Key", "01", 2, "ML1", "Key 2: ML1 is in this row twice"},
      {"Key", "01", 4, "TR1234567,1", "Key 4: 1234567 has more than 6 characters"},
      {"DSS", "01", 1, "GO1", "DSS 1: GO1 has an unknown code"},
      {"Incoming_List", "01", 2, "2000", ""},
      {"Route_Map_Digit", "005", 5, "255", ""},
      // Rows: their fields, and keys that are not rows.
      {"Port_Def", "060", 0, "5|10|14", "row: has 3 fields, not 23"},
      {"BOSS", "01", 0, "051||052", "row: has an empty field, so the fields after it move up"},
      {"BOSS", "01", 0, "051|052|", ""},
      {"Route_Map_Digit", "005", 0, "0016X|0|04", ""},
      {"COR", "01", 0, "00900|", "Ban Number 2: is empty"},
      {"COR_Group", "01", 0, "01|02|03|04|05|06|07|01|02", "row: has 9 fields, not 8"},
      {"Port_Def", "501", 0, "1|1|1", "row: is not a row of this section"},
      // Connection settings, one of them misspelled.
      {"Chk_Tarvok", "IPort", 0, "4999", "setting: is an unknown key"},
      {"Chk_Tarvok", "By", 0, "7", "setting: 7 is not between 0 and 4"},
      {"Chk_Tarvok", "IPPort", 0, "99999", "setting: 99999 is not between 1 and 65535"},
      {"Chk_Tarvok", "PID", 0, "15", ""},
      {"Chk_Tarvok", "BPS", 0, "9600,n,8,1", ""},
      {"Port_Deff", "-", 0, "1|1|1", "section: is not a section of a project"},
      // Values that must be unique.
      {"Port_Def", "060", 2, "4", "card and channel: 5/4 is also in row 054"},
      {"Port_Def", "060", 16, "123", "number: 123 is also in row 043"},
      {"Assign", "003", 1, "101", "number: 101 is also in row 002"},
      {"Assign", "003", 3, "083", "port: 83 is also in row 002"},
      {"Account", "002", 1, "710510", "account: 710510 is also in row 001"},
      {"Account", "002", 2, "24x8", "Password: (hidden) is not valid"},
      {"Group_Out", "04", 0, "036", ""},
      {"Group_Out", "04", 0, "001", "port: 1 is also in row 01"},
      // References that point nowhere.
      {"HuntGroup", "01", 0, "123|124|499", "Member 3: 499 points nowhere: Number 499 is empty"},
      {"Route", "001", 1, "09", "Group: 09 points nowhere: Group Out 09 is empty"},
      {"Route_Map_Digit", "005", 3, "09", "Route List: 09 points nowhere: List 09 is empty"},
      {"Route_Map_Digit", "005", 3, "51", "Route List: 51 is not between 1 and 50"},
      {"Port_Def", "060", 8, "050", "Incoming N: 050 points nowhere: Incoming List 50 is empty"},
      {"Assign", "002", 3, "400", "Value: 400 points nowhere: Port 400 is empty"},
      {"Assign", "001", 3, "15", "Value: 15 points nowhere: Hunt Group 15 is empty"},
      {"Assign", "002", 5, "490", "Name: 490 points nowhere: Name 490 is empty"},
      {"COR_Group", "01", 0, "09", "COR Number 1: 09 points nowhere: COR 09 is empty"},
      {"PortConfig", "01", 1, "09", "Class of Servrice Day: 09 points nowhere: COR Group 09 is empty"},
      {"Key", "02", 10, "GO9", "Key 10: 9 points nowhere: Group Out 09 is empty"},
      {"E1Map", "01", 2, "031", "End: 031 points at Port 031, which has a different Type"},
      {"DIDRedirect", "001", 1, "7", "E1: 7 points nowhere: E1 07 is empty"},
      {"DIDRedirect", "002", 5, "123", "Map Number: 123 is set, but must be empty with this Map Type"},
      {"Port_Def", "060", 4, "19", ""},  // a profile of nothing but defaults has no row
      // Counts and ends.
      {"Assign", "Now", 0, "20", "row: is 20, but row 187 is in use"},
      {"HuntGroup", "Now", 0, "21", "row: is 21, but there are 22 members"},
      {"Group_Out", "Now", 0, "41", "row: is 41, but there are 40 members"},
      {"Route_List", "08", 0, "9", "End: 9 is before the previous end, 12"},
      {"Route", "012", 0, "01|0|0|F|F|F|F|F|F", "row: is after the last List"},
      {"Route", "005", 0, "", "row: is missing in a List"},
  };
  const IniText hotel(SourceFile("/examples/hotel.tvk"));
  for (const auto& [section, key, field, value, what] : cases) {
    EXPECT_EQ(Lines(IniText(WithValue(hotel, section, key, field, value))),
              what.empty() ? "" : section + " " + key + " " + what)
        << value;
  }
}

TEST(Check, ReportsMissingFieldsAndLongValues) {
  EXPECT_THAT(Lines(IniText("[Chk_Tarvok]\nChk=TARVOK\n[E1Map]\n08=F|F|1\n[E1Number]\n01=08|1|2\n02=09|1|2\n"
                            "[BOSS]\n01=001|002\n[Port_Def]\n001=1|F|1\n")),
              testing::AllOf(HasSubstr("E1Number 01 E1: 08 points nowhere: E1 08 has no Start\n"),
                             HasSubstr("E1Number 02 E1: 09 points nowhere: E1 09 is empty"),
                             HasSubstr("BOSS 01 BOSS: 001 points nowhere: Port 001 has no Channel\n")));
  std::string full = "[Chk_Tarvok]\nChk=TARVOK\n[COR]\n";
  for (int number = 1; number <= 11; ++number) full += Padded(number, 2) + "=" + std::string(186, '1') + "\n";
  const std::string longest = "[Chk_Tarvok]\nChk=TARVOK\n[COR]\n01=" + std::string(1999, '1');
  EXPECT_EQ(Lines(IniText(longest + " \r\n")), "");
  EXPECT_EQ(Lines(IniText(longest + "2\r\n")),
            "COR 01 row: is longer than 1999 characters; the rest is not read");
  EXPECT_EQ(Lines(IniText(full)), "COR 11 Ban Number 1: " + std::string(186, '1') +
                                      " has no place in the pool that all classes share");
}

using Kind = Difference::Kind;

std::string Lines(const IniText& first, const IniText& second) {
  std::string lines;
  for (const Difference& d : CompareProjects(first, second)) {
    lines += (lines.empty() ? "" : "\n") + d.row + (d.field.empty() ? "" : " . " + d.field) + ": " +
             (d.kind == Kind::kOnlyInFirst    ? "only " + d.before
              : d.kind == Kind::kOnlyInSecond ? "new " + d.after
              : d.kind == Kind::kMoved        ? d.after
                                              : d.before + " -> " + d.after);
  }
  return lines;
}

TEST(Difference, DescribesEachChange) {
  // A key, its field from 1 or 0 for the whole value, and the value; "" if it means the same as in the
  // example.
  const std::tuple<std::string, std::string, int, std::string, std::string> cases[] = {
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
      {"Account", "001", 2, "1898", "Account 001 (710510) . Password: (set) -> (changed)"},
      {"Account", "001", 2, "F", "Account 001 (710510) . Password: (set) -> (blank)"},
      {"Account", "900", 0, "1|2468", "Account 900: new (set)"},
      {"Port_Def", "001", 17, "2468", "Port 001 (card 1, channel 1) . PSW: (blank) -> (set)"},
      {"Account", "003", 0, "",
       "Account 003 (710514): only Password (set), Number 514, Config 3, Tenan 1, Time (sec) 3600"},
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
  for (const auto& [section, key, field, value, line] : cases) {
    const IniText changed(WithValue(hotel, section, key, field, value));
    EXPECT_EQ(Lines(hotel, changed), line) << section << " " << key << " " << value;
    EXPECT_EQ(Lines(changed, hotel).empty(), line.empty());
  }
}

TEST(Difference, ShowsPasswordsOnlyOnRequest) {
  const IniText before("[Account]\n001=123|1357\n900=9|8642");
  const IniText after("[Account]\n001=123|2468\n900=9|9753\n002=77|4321");
  const std::string_view secrets[] = {"1357", "2468", "8642", "9753", "4321"};
  for (const Secrets shown : {Secrets::kHidden, Secrets::kShown}) {
    std::string text;
    for (const Difference& d : CompareProjects(before, after, shown)) text += d.before + " " + d.after + " ";
    for (const std::string_view secret : secrets)
      EXPECT_EQ(text.find(secret) != std::string::npos, shown == Secrets::kShown) << secret;
  }
  EXPECT_THAT(SearchProject(after, "2468", 9).found, testing::IsEmpty());
}

TEST(Difference, ComparesMovedRowsWithThemselves) {
  // Names by row, a letter each or F for none; the name row that the number refers to; both again after a
  // change.
  const std::tuple<std::string, int, std::string, int, std::string> cases[] = {
      {"ABCD", 3, "ACD", 2, "Name 003 (C) to 004: 2 rows moved up by 1\nName 002 (B): only "},
      {"AB", 2, "XAB", 2,
       "Number 001 (100) . Name: B -> A\nName 001 (A) to 002: 2 rows moved down by 1\nName 001 (X): new "},
      {"ABC", 1, "BC", 1,
       "Number 001 (100) . Name: A -> B\nName 002 (B) to 003: 2 rows moved up by 1\nName 001 (A): only "},
      {"AB", 1, "FBFA", 4, "Name 001 (A): now 004"},
      {"ABCDEG", 2, "GEDCBA", 5, "Name 001 (A) to 006: 6 rows in a different order"},
      // Two rows have the same name.
      {"ABA", 1, "AAB", 1, "Name 002 (B): now 003\nName 003 (A): now 002"},
      {"XABA", 2, "ABA", 1, "Name 002 (A) to 004: 3 rows moved up by 1\nName 001 (X): only "},
      {"1A2B3C4D5E", 2, "ABCDE", 1,
       "Name 002 (A) to 010: 5 rows moved and keep their order\nName 001 (1): only \nName 003 (2): only \n"
       "Name 005 (3): only \nName 007 (4): only \nName 009 (5): only "},
      {"AAB", 1, "ACB", 1, "Name 002 (A) . Name: A -> C"}};
  const auto project = [](const std::string& names, int of_number) {
    std::string text = "[Assign]\n001=100|0|F|F|00" + std::to_string(of_number) + "\n[Name]\n";
    int row = 0;
    for (const char name : names) text += Padded(++row, 3) + "=" + name + "\n";
    return IniText(text);
  };
  for (const auto& [first, named, second, named_then, lines] : cases)
    EXPECT_EQ(Lines(project(first, named), project(second, named_then)), lines);
}

std::vector<std::string> Search(const IniText& project, std::string_view text, std::size_t most = 100) {
  std::vector<std::string> found;
  for (const Found& each : SearchProject(project, text, most).found) {
    found.push_back(each.place.section + " " + each.place.key + "." + std::to_string(each.place.field) + " " +
                    each.row + (each.field.empty() ? "" : " " + each.field + "=" + each.value));
  }
  return found;
}

TEST(Search, FindsNumbersNamesPortsAndTexts) {
  const IniText project(
      "[Port_Def]\n001=3|4|2|F|F|F|F|F|0|F|F|F|F|F|F|001\n002=3|14|2|F\n[Assign]\n001=501|0|001|1|001\n"
      "002=1501|0|002|1|002\n[Name]\n001=Caf\xE9 Bar\n[HuntGroup]\n01=002|001\n");
  EXPECT_THAT(Search(project, "501"), Contains("Assign 001.1 Number 001 (501) Number=501"));
  EXPECT_EQ(Search(project, "501").size(), Search(project, " 501 ").size());
  EXPECT_THAT(Search(project, "bar"), Contains("Name 001.1 Name 001 (Caf\xE9 Bar) Name=Caf\xE9 Bar"));
  EXPECT_THAT(Search(project, "3-4"), Contains("Port_Def 001.0 Port 001 (card 3, channel 4)"));
  EXPECT_THAT(Search(project, "3-04"), Contains("Assign 001.3 Number 001 (501) Value=3/4"));
  EXPECT_THAT(Search(project, "port 2"), ElementsAre("Port_Def 002.0 Port 002 (card 3, channel 14)"));
  EXPECT_THAT(Search(project, "nothing like it"), SizeIs(0));
  EXPECT_THAT(Search(project, "  "), SizeIs(0));

  FoldTable fold = AsciiFold();
  fold[0xC9] = 0xE9;
  EXPECT_THAT(SearchProject(project, "CAF\xC9", 9, fold).found,
              SizeIs(2));  // the name and the number that uses it
  EXPECT_THAT(SearchProject(project, "CAF\xC9", 9).found, SizeIs(0));
  const SearchResult cut = SearchProject(project, "0", 2);
  EXPECT_THAT(cut.found, SizeIs(2));
  EXPECT_TRUE(cut.more);
}

TEST(Search, EveryFieldHasAFormAndAPlace) {
  for (const Table* table : Tables()) {
    const int number = table->single() ? 0 : table->rows.last;
    const std::string key = KeyOf(*table, number);
    SCOPED_TRACE(std::string(table->section) + " " + key);
    const std::optional<StatedRow> row = FindRow(table->section, key);
    ASSERT_TRUE(row.has_value());
    EXPECT_EQ(row->table, table);
    EXPECT_EQ(row->row, number);
    for (std::size_t i = 0; i < table->fields.size(); ++i) {
      const int field = static_cast<int>(i) + 1;
      ASSERT_NE(CommandOf(*table, field), "");
      if (table->fields[i].name.empty()) continue;
      const Place place = PlaceOf(table->section, key, table->fields[i].name);
      EXPECT_EQ(place, (Place{std::string(table->section), key, number, field}));
      EXPECT_EQ(CommandOf(place), CommandOf(*table, field));
    }
  }
}

TEST(Search, FindsThePlaceOfAFinding) {
  const std::tuple<const char*, const char*, const char*, int, int, const char*> cases[] = {
      {"Port_Def", "012", "row", 12, 0, "portdefine"},  {"port_def", "012", "Busy", 12, 13, "callforward"},
      {"Port_Def", "9999", "row", 0, 0, "portdefine"},  {"HuntGroup", "01", "Member 3", 1, 3, "groupofhunt"},
      {"SystemConfig", "Now", "row", 0, 0, "pabxmode"}, {"MyNotes", "x", "row", 0, 0, ""}};
  for (const auto& [section, key, field, row, column, command] : cases) {
    const Place place = PlaceOf(section, key, field);
    EXPECT_EQ(place.row, row) << section << key;
    EXPECT_EQ(place.field, column) << section << key;
    EXPECT_EQ(CommandOf(place), command) << section;
  }
}

}  // namespace
}  // namespace tarvok::test
