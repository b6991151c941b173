#include <gmock/gmock.h>

#include "editing/table_csv.h"
#include "editing/table_form.h"
#include "editing/table_operations.h"
#include "tests/floors.h"
#include "tests/matchers.h"

namespace tarvok::test {
namespace {

/** Columns: a number, a list, a read-only note, free text, and a list with typing. */
TableEditor MakeTable(RowCommands rows = RowCommands::kGrow, int count = 4) {
  TableEditor table(
      {.columns = {{.title = "Number", .rule = DigitsRule(4)},
                   {.title = "Kind", .entry = Entry::kList, .list = {"Port", "Hunt"}},
                   {.title = "Fixed", .entry = Entry::kReadOnly},
                   {.title = "Name", .rule = TextRule(8)},
                   {.title = "Time",
                    .entry = Entry::kEditList,
                    .rule = {.characters = "0123456789", .first_characters = "123456789", .most = 2},
                    .list = {"No Limit"}}},
       .rows = rows,
       .most = 6,
       .sort_by = {{1}, {4}}});
  for (int row = 1; row <= count; ++row) table.Load({.origin = row, .cells = {"", "", "x"}});
  return table;
}

void Type(TableEditor& table, std::string_view text) {
  for (const char c : text) PressKey(table, Key::Of(c));
}

std::vector<std::string> ColumnOf(const TableEditor& table, int column) {
  std::vector<std::string> cells;
  for (int row = 1; row <= table.rows(); ++row) cells.push_back(table.Cell(row, column));
  return cells;
}

TEST(TableEditor, TypesWhatTheColumnAccepts) {
  const std::tuple<int, const char*, const char*> cases[] = {
      {1, "12a345", "1234"}, {4, " 'It|s", "'Its"}, {4, "\"ab\"c", "\"abc"}, {3, "9", "x"},
      {2, "P", "Port"},      {5, "0123", "12"},     {5, "1x2", "12"}};
  for (const auto& [column, keys, cell] : cases) {
    TableEditor table = MakeTable();
    table.GoTo(1, column);
    Type(table, keys);
    table.LeaveCell();
    EXPECT_EQ(table.Cell(1, column), cell) << keys;
  }
}

TEST(TableEditor, AListAcceptsOnlyItsEntries) {
  TableEditor table = MakeTable();
  table.GoTo(2, 2);
  EXPECT_TRUE(PickEntry(table, "Hunt"));
  EXPECT_FALSE(PickEntry(table, "Nothing"));
  EXPECT_EQ(table.Cell(2, 2), "Hunt");
  PressKey(table, Key::Of('x'));  // opens the list
  EXPECT_EQ(table.Cell(2, 2), "Hunt") << "no entry starts with it";
  PressKey(table, {KeyCode::kUp});
  EXPECT_EQ(table.Cell(2, 2), "Port");
  PressKey(table, {KeyCode::kDelete});
  EXPECT_EQ(table.Cell(2, 2), "");
  EXPECT_FALSE(EditCell(table, "Hun"));
}

TEST(TableEditor, KeysInAListFindTheFirstMatchingEntry) {
  TableEditor table(
      {.columns = {{.title = "List", .entry = Entry::kList, .list = {"1", "2", "12", "Extension", "12/3"}}}});
  const std::pair<const char*, const char*> cases[] = {{"e", "Extension"}, {"1", "1"},          {"12", "12"},
                                                       {"12/", "12/3"},    {"1e", "Extension"}, {"1x", "1"},
                                                       {"x", "2"}};
  for (const auto& [keys, entry] : cases) {
    table.Clear();
    table.Load({.cells = {"2"}});
    Type(table, keys);
    EXPECT_TRUE(table.open());
    EXPECT_EQ(table.Cell(1, 1), entry) << keys;
    PressKey(table, {KeyCode::kEscape});
    EXPECT_EQ(table.Cell(1, 1), "2");
  }
}

TEST(TableEditor, ARejectionGivesTheReason) {
  TableEditor table(
      {.columns = {{.title = "Digits", .rule = DigitsRule(4)},
                   {.title = "Name", .rule = TextRule(8)},
                   {.title = "Limit", .rule = LimitRule()},
                   {.title = "Pattern",
                    .rule = {.characters = "12xX", .first_characters = "p", .most = 3, .upper = true}},
                   {.title = "Time",
                    .entry = Entry::kEditList,
                    .rule = {.characters = "0123456789", .most = 4, .fits = FitsTime, .wants = kWantsTime},
                    .list = {"Never"}}}});
  table.Load({.cells = {}});
  const std::tuple<int, const char*, const char*> cases[] = {
      {1, "12x", "may contain only digits"},
      {1, "12345", "is too long: at most 4 digits"},
      {2, " Bar", "cannot start with a blank"},
      {2, "'Bar'", "cannot be in quotes"},
      {2, "Sparkling", "is too long: at most 8 characters"},
      {2, "a\x01", "cannot contain a control character"},
      {2, "F", "cannot be used alone: it means that nothing is set"},
      {3, "300", "must be from 1 to 254"},
      {4, "1z", "may contain only 12X"},
      {4, "1p", "can contain \"P\" only at the start"},
      {4, "p121", "is too long: at most 3 characters"},
      {5, "2500", "is not in the list, and must be a time from 0000 to 2359"}};
  for (const auto& [column, text, reason] : cases) {
    std::string why;
    EXPECT_EQ(table.Fitting(1, column, text, why), std::nullopt) << text;
    EXPECT_EQ(why, reason) << text;
  }
  std::string why;
  EXPECT_EQ(table.Fitting(1, 4, "P1x", why), "P1X") << "either case";
  EXPECT_EQ(table.Fitting(1, 2, "Fo", why), "Fo");
}

/** "F" alone means that a name is not set, so it is dropped unless more is typed after it. */
TEST(TableEditor, AReservedTextIsDropped) {
  const std::pair<const char*, const char*> cases[] = {{"F", ""}, {"Fo", "Fo"}, {"f", "f"}};
  for (const auto& [keys, cell] : cases) {
    TableEditor table = MakeTable();
    table.GoTo(1, 4);
    Type(table, keys);
    EXPECT_EQ(table.Cell(1, 4), keys) << "while typing";
    PressKey(table, {KeyCode::kReturn});
    EXPECT_EQ(table.Cell(1, 4), cell) << keys;
  }
  TableEditor loaded = MakeTable();
  loaded.Load({.cells = {"", "", "", "F"}});
  loaded.GoTo(5, 4);
  loaded.GoTo(1, 4);
  EXPECT_EQ(loaded.Cell(5, 4), "F") << "it was not typed";
}

TEST(TableEditor, ASelectionExtendsFromTheOppositeCorner) {
  TableEditor table = MakeTable();
  table.Select({2, 1, 4, 3}, 2, 3);
  EXPECT_EQ(CopyCells(table), "\t\tx\r\n\t\tx\r\n\t\tx");
  table.SelectTo(3, 4);
  EXPECT_EQ(table.selection(), (Selection{3, 1, 4, 4}));
  table.GoTo(3, 2);
  table.Select({1, 1, 4, 3}, 2, 2);  // a whole column by its header: the current cell is not a corner
  table.SelectTo(3, 2);
  EXPECT_EQ(table.selection(), (Selection{2, 2, 3, 2}));
}

TEST(TableEditor, PastingABlockChecksEveryRuleInOneStep) {
  TableEditor table = MakeTable();
  int changes = 0;
  table.changed = [&] { ++changes; };
  table.GoTo(2, 1);
  const std::vector<Refusal> refused =
      PasteCells(table, "11\tPort\tchanged\tBar\r\n12x\tHunter\t\t|Ann|\n13\n14\tPort\n15\tlost\n");
  EXPECT_THAT(ColumnOf(table, 1), ElementsAre("", "11", "", "13"));
  EXPECT_THAT(ColumnOf(table, 2), ElementsAre("", "Port", "", ""));
  EXPECT_THAT(ColumnOf(table, 3), ElementsAre("x", "x", "x", "x"));
  EXPECT_THAT(ColumnOf(table, 4), ElementsAre("", "Bar", "Ann", ""));
  ASSERT_THAT(refused, SizeIs(2));
  EXPECT_EQ(refused[0].row, 3);
  EXPECT_EQ(refused[1].text, "Hunter");
  EXPECT_EQ(changes, 1);
  table.Undo();
  EXPECT_THAT(ColumnOf(table, 1), ElementsAre("", "", "", ""));
  table.Redo();
  EXPECT_EQ(table.Cell(3, 4), "Ann");
  EXPECT_THAT(PasteCells(table, ""), IsEmpty());
}

TEST(TableEditor, FillsASelectionWithACellOrTheFirstRow) {
  TableEditor table = MakeTable();
  table.GoTo(1, 1);
  table.SelectTo(3, 1);
  PasteCells(table, "7");
  EXPECT_THAT(ColumnOf(table, 1), ElementsAre("7", "7", "7", ""));
  table.GoTo(1, 2);
  PickEntry(table, "Port");
  table.GoTo(1, 1);
  table.SelectTo(4, 3);
  FillDown(table);
  EXPECT_EQ(table.Cell(4, 1), "7");
  EXPECT_EQ(table.Cell(4, 2), "Port");
  EXPECT_EQ(CopyCells(table).substr(0, 16), "7\tPort\tx\r\n7\tPort");
  ClearCells(table);
  EXPECT_EQ(CopyCells(table), "\t\tx\r\n\t\tx\r\n\t\tx\r\n\t\tx");
}

TEST(TableEditor, RowsKeepTheirOriginsThroughMovesAndUndo) {
  TableEditor table = MakeTable();
  const auto origins = [&] {
    std::vector<int> all;
    for (int row = 1; row <= table.rows(); ++row) all.push_back(table.row(row).origin);
    return all;
  };
  table.GoTo(1, 1);
  PasteCells(table, "30\n\n4\n30");
  table.GoTo(4, 4);
  Type(table, "A");
  SortRows(table, true);
  EXPECT_THAT(ColumnOf(table, 1), ElementsAre("4", "30", "30", ""));
  EXPECT_THAT(origins(), ElementsAre(3, 4, 1, 2));  // the name decides, blanks come last
  SortRows(table, false);
  EXPECT_THAT(origins(), ElementsAre(4, 1, 3, 2));
  table.GoTo(2, 1);
  InsertRow(table);
  table.GoTo(4, 1);
  DeleteRows(table);
  EXPECT_THAT(origins(), ElementsAre(4, 0, 1, 2));
  for (int steps = 0; steps < 3; ++steps) table.Undo();
  EXPECT_THAT(origins(), ElementsAre(3, 4, 1, 2));
  while (table.CanUndo()) table.Undo();
  EXPECT_THAT(origins(), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(ColumnOf(table, 1), ElementsAre("", "", "", ""));
}

TEST(TableEditor, SortsNumbersOfAnyLength) {
  TableEditor table({.columns = {{.title = "Digits"}}, .sort_by = {{1}}});
  for (const char* digits :
       {"", "1*", "12345678901234567890", "0", "00000000000000000007", "1234567890123456", "8"})
    table.Load({.cells = {digits}});
  SortRows(table, true);
  EXPECT_THAT(ColumnOf(table, 1), ElementsAre("0", "00000000000000000007", "8", "1234567890123456",
                                              "12345678901234567890", "1*", ""));
}

TEST(TableEditor, CommandsSkipRowsOutOfSight) {
  using Numbers = std::vector<std::string>;
  const Numbers all = {"1", "2", "3", "4", "5"};
  std::vector<Refusal> refused;
  const std::tuple<const char*, std::function<void(TableEditor&)>, Numbers> cases[] = {
      {"delete rows", [](TableEditor& table) { DeleteRows(table); }, {"2", "4"}},
      {"clear", [](TableEditor& table) { ClearCells(table); }, {"", "2", "", "4", ""}},
      {"paste one", [](TableEditor& table) { PasteCells(table, "7"); }, {"7", "2", "7", "4", "7"}},
      {"paste many", [](TableEditor& table) { PasteCells(table, "7\n8"); }, {"7", "2", "8", "4", "5"}},
      {"fill", [](TableEditor& table) { FillDown(table); }, {"1", "2", "1", "4", "1"}},
      {"replace", [&](TableEditor& table) { ReplaceAll(table, "2", "9", refused); }, all},
      {"move",
       [](TableEditor& table) {
         for (const KeyCode key : {KeyCode::kDown, KeyCode::kUp, KeyCode::kDelete}) PressKey(table, {key});
       },
       {"1", "2", "", "4", "5"}},
      {"insert", [](TableEditor& table) { InsertRow(table); }, {"1", "2", "3", "4", "", "5"}}};
  for (const auto& [what, act, numbers] : cases) {
    SCOPED_TRACE(what);
    TableEditor table = MakeTable(RowCommands::kGrow, 5);
    PasteCells(table, "1\n2\n3\n4\n5");
    table.SelectTo(5, 1);
    EXPECT_EQ(table.ShowRows([](int row) { return row % 2 == 1; }, false), 3);
    EXPECT_EQ(CopyCells(table), "1\r\n3\r\n5");
    EXPECT_FALSE(FindNext(table, "4"));
    act(table);
    EXPECT_EQ(ColumnOf(table, 1), numbers);
    while (table.CanUndo()) table.Undo();
    EXPECT_TRUE(table.InSight(table.current_row()));
    table.Redo();
    EXPECT_EQ(table.ShowRows([](int) { return false; }, false), 0);
    table.GoToBottom();
    act(table);
    EXPECT_EQ(ColumnOf(table, 1), all) << "no row is in sight";
  }
}

TEST(TableEditor, TheCurrentCellStaysInSight) {
  TableEditor table = MakeTable(RowCommands::kFixed, 6);
  PasteCells(table, "1\n2\n3\n4\n5\n6");
  table.GoTo(2, 1);
  const auto above_3 = [&](int row) { return table.Cell(row, 1) > "3"; };
  EXPECT_EQ(table.ShowRows(above_3, true), 4) << "the row being edited stays";
  EXPECT_EQ(table.ShowRows(above_3, false), 3);
  EXPECT_EQ(table.current_row(), 4);
  table.GoToBottom();
  DeleteRows(table);
  EXPECT_THAT(ColumnOf(table, 1), ElementsAre("1", "2", "3", "4", "5", ""));
  EXPECT_EQ(table.current_row(), 5) << "not the blank row after it";
}

TEST(TableEditor, RowsGrowToTheLimitUnlessFixed) {
  TableEditor grows = MakeTable();
  for (int i = 0; i < 5; ++i) AddRow(grows);
  EXPECT_EQ(grows.rows(), 6);
  InsertRow(grows);  // replaces the blank last row
  EXPECT_EQ(grows.rows(), 6);
  TableEditor fixed = MakeTable(RowCommands::kFixed);
  AddRow(fixed);
  fixed.GoTo(2, 1);
  fixed.SelectTo(3, 1);
  DeleteRows(fixed);
  EXPECT_EQ(fixed.rows(), 4);
  EXPECT_EQ(fixed.row(2).origin, 4);
  EXPECT_EQ(fixed.row(4).origin, 0);
  TableEditor none = MakeTable(RowCommands::kNone);
  DeleteRows(none);
  InsertRow(none);
  EXPECT_FALSE(none.CanUndo());
}

TEST(TableEditor, ReplacingChecksTheRules) {
  TableEditor table = MakeTable();
  table.GoTo(1, 1);
  PasteCells(table, "110\n11\n5");
  table.GoTo(1, 4);
  PasteCells(table, "Bar 11");
  std::vector<Refusal> refused;
  EXPECT_TRUE(FindNext(table, "BAR"));
  EXPECT_EQ(table.current_column(), 4);
  EXPECT_FALSE(FindNext(table, "none"));
  EXPECT_FALSE(FindNext(table, ""));
  EXPECT_EQ(ReplaceAll(table, "11", "x", refused), 1);
  EXPECT_THAT(refused, SizeIs(2));
  EXPECT_EQ(refused[0].why, "may contain only digits");
  EXPECT_EQ(table.Cell(1, 4), "Bar x");
  EXPECT_EQ(ReplaceAll(table, "1", "22", refused), 1);
  EXPECT_THAT(ColumnOf(table, 1), ElementsAre("110", "2222", "5", ""));
}

TEST(TableEditor, CsvRoundTripsAndErrorsChangeNothing) {
  TableEditor table = MakeTable();
  table.GoTo(1, 1);
  PasteCells(table, "1\tPort\t\ta,\"b\n2");
  const std::string csv = ExportCsv(table);
  EXPECT_THAT(csv, HasSubstr("1,Port,x,\"a,\"\"b\",\r\n2,,x,,\r\n"));
  TableEditor other = MakeTable();
  EXPECT_TRUE(ImportCsv(other, csv).ok());
  EXPECT_EQ(ExportCsv(other), csv);
  const std::pair<const char*, const char*> cases[] = {
      {"Number;Kind\n7;Port\n8;Hunter\n", "line 3, column \"Kind\": \"Hunter\""},
      {"Number\n1\n2\n3\n4\n5\n6\n7\n", "line 8"},
      {"Nummer\n1\n", "no column \"Nummer\""},
      {"Number\n\"1\n", "quote"},
      {"Number,Number\n1,1\n", "Number"},
      {"", "empty"},
      {"Number\n1,2\n", "more cells"}};
  for (const auto& [text, error] : cases) {
    const int steps = static_cast<int>(other.Steps());
    EXPECT_THAT(ImportCsv(other, text).message(), HasSubstr(error)) << text;
    EXPECT_EQ(ExportCsv(other), csv) << text;
    EXPECT_EQ(static_cast<int>(other.Steps()), steps);
  }
  EXPECT_TRUE(ImportCsv(other, "Name,Number\r\nX,9\r\n").ok());
  EXPECT_THAT(ColumnOf(other, 1), ElementsAre("9", "", "", ""));
  EXPECT_EQ(other.Cell(1, 2), "Port");
  const std::string before = ExportCsv(other);
  const auto no_x = [](const std::string& cell, std::string& why) {
    why = "is not valid";
    return cell == "X" ? std::nullopt : std::optional(cell);
  };
  EXPECT_THAT(ImportCsv(other, "Number,Name\n1,Y\n2,X\n", {.convert = no_x}).message(),
              HasSubstr("line 3, column \"Name\": \"X\" is not valid"));
  std::vector<int> asked;
  const auto refuse = [&](int rows, int by, const std::vector<int>& columns) {
    asked = {rows, by, columns.front()};
    return false;
  };
  EXPECT_TRUE(ImportCsv(other, "Number\n1\n2\n", {.may_replace = refuse}).ok());
  EXPECT_THAT(asked, ElementsAre(1, 2, 1));
  EXPECT_EQ(ExportCsv(other), before);
  TableEditor one({.columns = {{.title = "Number"}}});
  for (const char* cell : {"1", "", "3", "a\r", ""}) one.Load({.cells = {cell}});
  const std::string column = ExportCsv(one);
  EXPECT_TRUE(ImportCsv(one, column).ok());
  EXPECT_THAT(ColumnOf(one, 1), ElementsAre("1", "", "3", "a\r", ""));
  EXPECT_TRUE(ImportCsv(one, "Number\n\n2\n\n").ok());
  EXPECT_THAT(ColumnOf(one, 1), ElementsAre("", "2", "", "", "")) << "a blank line is a blank row";
  TableEditor blank = MakeTable();
  EXPECT_TRUE(ImportCsv(blank, "Number\n1\n", {.may_replace = refuse}).ok());
  EXPECT_EQ(blank.Cell(1, 1), "1") << "no question is asked";
}

TEST(TableEditor, ListsEachRepeatOnce) {
  EXPECT_THAT(Repeats({"2", "", "1", "2", "3", "2", "1", ""}), ElementsAre("1", "2"));
}

}  // namespace
}  // namespace tarvok::test
