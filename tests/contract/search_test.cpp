#include "sections/search.h"

#include <gmock/gmock.h>

#include "sections/check.h"
#include "sections/places.h"
#include "sections/rows.h"
#include "sections/tables.h"

namespace tarvok::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

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
      "[Port_Def]\n001=3|4|2|F|F|F|F|F|0|F|F|F|F|F|F|001\n002=3|14|2|F\n"
      "[Assign]\n001=501|0|001|1|001\n002=1501|0|002|1|002\n"
      "[Name]\n001=Caf\xE9 Bar\n[HuntGroup]\n01=002|001\n");
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
              SizeIs(2));  // the name, and the number that has it
  EXPECT_THAT(SearchProject(project, "CAF\xC9", 9).found, SizeIs(0));
  const SearchResult cut = SearchProject(project, "0", 2);
  EXPECT_THAT(cut.found, SizeIs(2));
  EXPECT_TRUE(cut.more);
}

TEST(Search, EveryFieldOfEveryTableHasAFormAndItsRowIsFoundAgain) {
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
      ASSERT_NE(CommandOf(*table, field), nullptr);
      if (table->fields[i].name.empty()) continue;
      const Place place = PlaceOf(table->section, key, table->fields[i].name);
      EXPECT_EQ(place, (Place{std::string(table->section), key, number, field}));
      EXPECT_EQ(CommandOf(place), CommandOf(*table, field));
    }
  }
}

TEST(Search, PlacesOfFindings) {
  const std::tuple<const char*, const char*, const char*, int, int, const char*> cases[] = {
      {"Port_Def", "012", "row", 12, 0, "portdefine"},  {"port_def", "012", "Busy", 12, 13, "callforward"},
      {"Port_Def", "9999", "row", 0, 0, "portdefine"},  {"HuntGroup", "01", "Member 3", 1, 3, "groupofhunt"},
      {"SystemConfig", "Now", "row", 0, 0, "pabxmode"}, {"MyNotes", "x", "row", 0, 0, ""}};
  for (const auto& [section, key, field, row, column, command] : cases) {
    const Place place = PlaceOf(section, key, field);
    EXPECT_EQ(place.row, row) << section << key;
    EXPECT_EQ(place.field, column) << section << key;
    const Command* found = CommandOf(place);
    EXPECT_EQ(found == nullptr ? "" : found->key, command) << section;
  }
}

}  // namespace
}  // namespace tarvok::test
