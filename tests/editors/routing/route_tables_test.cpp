// The routing editors with plain tables: routes, route map, incoming lists, E1 links and numbering.

#include "editing/table_form.h"
#include "editing/table_operations.h"
#include "store/number_text.h"
#include "tests/editors/editor_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

constexpr const char* kLists = "[Route_List]\nMax=50\n01=2\n02=2\n03=4\n04=3\n05=4\n06=5\n";
constexpr const char* kNumbers =
    "[Assign]\nMax=500\nNow=4\n001=100|0|F|0|F\n002=200|0|F|0|F\n003=F|F|F|F|F\n004=100|0|F|0|F\n005=500|F|F|"
    "F|F\n";
constexpr const char* kLinks = "[E1Map]\nMax=10\nNow=10\n01=001|002|1\n02=001|F|0\n03=002|003|2\n";
constexpr const char* kE1Ports =
    "[Port_Def]\nMax=500\nNow=500\n001=1|1|6|F|F|F|02|003|F\n002=1|2|6|F|F|F|001|000|F\n003=1|3|6\n004=2|1|"
    "2\n";

TEST(RouteMapEditor, SavesEveryRowInOrder) {
  ExpectEdit("frmRouteMap",
             std::string(kLists) +
                 "[Route_Map_Digit]\n001=9|7|04|5|300\n002=1X|0|101|F\n003=F|F|F|F|F\n004=20|1|07|1|255\n",
             "list cmbMask2\ngo 5 Digit\ntype 3\nclick cmdOK\n", "Extension\nList 1\nList 3\nList 6",
             "[Route_Map_Digit]\n001=3|F|F|F|0\n002=9|F|04|0|254\n"  // a list that is no longer offered
             "003=20|1|07|1|255\n004=1X|0|101|F|0\n200=F|F|F|F|0\n");
}

/** Pasted and replaced text is converted to capitals like typed text, so that no pattern is lost. */
TEST(RouteMapEditor, AcceptsPatternsInEitherCase) {
  EditorBench bench("[Route_Map_Digit]\n001=5U2|F|F|F|0\n002=P1X|F|F|F|0\n003=CLZNW:|F|F|F|0\n");
  bench.Run(
      "frmRouteMap",
      "select 1 Digit 3 Digit\ncut\ngo 5 Digit\npaste\nselect 5 Digit 8 Digit\ncopy\ngo 11 Digit\npaste\n"
      "go 20 Digit\npaste p1\\n5P\nselect 6 Digit 6 Digit\n");
  const auto digits = [&](int row) { return bench.Cells(row, 1, 1).front(); };
  EXPECT_EQ(digits(5) + " " + digits(6) + " " + digits(7), "5U2 P1X CLZNW:");
  EXPECT_EQ(digits(11) + " " + digits(12) + " " + digits(13), "5U2 P1X CLZNW:");
  auto& table = *bench.editor->table();
  EXPECT_EQ(digits(20), "P1");
  ASSERT_EQ(bench.editor->table()->refused.size(), 1U);
  EXPECT_EQ(bench.editor->table()->refused[0].why, "can contain \"P\" only at the start");
  table.GoTo(12, 1);
  table.SelectTo(13, 1);
  EXPECT_THAT(FillDown(table), IsEmpty());
  EXPECT_EQ(digits(13), "P1X");
  std::vector<Refusal> refused;
  EXPECT_EQ(ReplaceAll(table, "1x", "U2", refused), 3);
  EXPECT_THAT(refused, IsEmpty());
  EXPECT_EQ(digits(6), "PU2");
  bench.Go("go 30 Digit\ntype U\ngo 31 Digit\ntype 5U2\n");
  EXPECT_EQ(digits(30) + " " + digits(31), "U 52") << "typing works as before";
}

TEST(RouteMapEditor, SortsBlanksLastInBothDirections) {
  EditorBench bench("[Route_Map_Digit]\n001=F|0|F|F|0\n002=5|F|F|F|0\n003=XX|F|F|F|0\n004=40|F|F|F|0\n");
  bench.Run("frmRouteMap", "click cmdSort\nclick cmdSort\n");
  std::vector<std::string> digits;
  for (int row = 1; row <= 4; ++row) digits.push_back(bench.Cells(row, 1, row == 4 ? 2 : 1).back());
  EXPECT_THAT(digits, ElementsAre("XX", "40", "5", "DID Grp"));
}

TEST(IncomingListEditor, SavingSortsAndUpdatesPorts) {
  ExpectEdit(
      "frmIncomingLst",
      std::string(kNumbers) + kE1Ports +
          "[Incoming_List]\nMax=50\nNow=50\n01=Zoo|004|1000|F|5\n02=Bar|002|2000|3000|F\n"
          "03=F|003|F|F|254\n04=Abc|005|499|F|F\n",
      "list cmbMask\ngo 5 Name\ntype Cafe\nselect 2 1 2 5\nclick mnu_cut\nclick cmdOK\n",
      "100\n200\n100\nDID\nMap_Digit\nWait_Comp\n" + AskedToClear("Incoming List 02 (Bar) is used in 1"),
      "[Incoming_List]\n01=Abc|005|F|F|F\n"     // above "Now", but in use
      "02=Cafe|F|F|F|F\n03=Zoo|004|1000|F|5\n"  // the second of two equal numbers
      "-04\n05=F|F|F|F|254\n"                   // its target has no number
      "[Port_Def]\n001=1|1|6|F|F|F|F|005|F\n002=1|2|6|F|F|F|003|000|F\n");
}

TEST(IncomingListEditor, AddsAndDeletesRowsUpToTheLimit) {
  EditorBench bench("[Incoming_List]\nMax=3\nNow=3\n02=B|F|F|F|F\n04=D|F|F|F|F\n");
  bench.Run("frmIncomingLst", "");
  EXPECT_EQ(bench.editor->table()->rows(), 4);  // rows in use above "Max" are shown
  bench.Go("go 1 1\nclick mnu_del_row\nclick mnu_AddRow\n");
  EXPECT_EQ(bench.lines, std::vector<std::string>{"box: Over limit data you cannot add. "});
  bench.Go("click mnu_del_row\nclick mnu_AddRow\ntype X\nclick cmdOK\n");
  bench.ExpectKeys("[Incoming_List]\nNow=3\n01=D|F|F|F|F\n02=X|F|F|F|F\n-04\n");
}

TEST(E1MappingEditor, ReferencesFollowMovedLinksAndLeaveEmptiedOnes) {
  ExpectEdit(
      "frmE1Map",
      std::string(kE1Ports) + kLinks +
          "[E1Number]\n01=1|12|3\n02=03|5|F\n[DIDRedirect]\n001=1|10|20|3|F\n002=3|1|2|F|F\n003=5|1|2|F|F\n",
      "list cmbMask\ngo 1 Mode\npick \"Network Link\"\nclick mnu_Sort_ZA\n"
      "go 2 Start\npress Delete\ngo 2 End\npress Delete\nclick cmdOK\n",
      "1/1\n1/2\n1/3\n" + AskedToClear("E1 01 is used in 2"),
      "[E1Map]\n01=002|003|2\n02=F|F|3\n10=F|F|0\nNow=10\n[E1Number]\n01=F|12|3\n02=01|5|F\n"
      "[DIDRedirect]\n001=F|10|20|3|F\n002=1|1|2|F|F\n003=5|1|2|F|F\n");  // that link was empty before
}

TEST(E1NumberingEditor, OffersLinksWithBothPortsAndWritesEveryRow) {
  ExpectEdit("frmE1Numbering", std::string(kE1Ports) + kLinks + "[E1Number]\n02=3|5|18\n",
             "go 1 1\nlist cmbMask\npick 1\nclick cmdOK\n", "1\n3",
             "[E1Number]\n01=01|F|F\n02=03|5|18\n20=F|F|F\n");
}

TEST(DidRedirectEditor, MapNumberDependsOnTheType) {
  EditorBench bench(
      std::string(kLists) + kNumbers + kE1Ports + kLinks +
      "[DIDRedirect]\n001=1|1|2|1|03\n002=9|3|4|0|004\n003=1|5|6|4|F\n004=1|7|8|1|02\n005=F|F|F|7|01\n");
  EXPECT_THAT(
      bench.Run("frmDIDRedirect",
                "go 1 5\nlist cmbMask3\ngo 2 5\nlist cmbMask3\ngo 1 \"Map Type\"\npick \"Not Exist\"\n"
                "go 3 4\npick Number\ngo 3 5\npick 500\nclick cmdOK\n"),
      ElementsAre("List 1", "List 3", "List 6", "100", "200", "100", "500"));
  bench.ExpectKeys(
      "[DIDRedirect]\n001=1|1|2|3|F\n002=9|3|4|0|004\n"  // the second of two equal numbers
      "003=1|5|6|0|005\n004=1|7|8|1|02\n"                // a list without routes
      "-005\n");
  bench.Run("frmDIDRedirect",
            "go 6 1\npaste 1\\t11\\t12\\tRoute List\\tList 6\nclick cmdSort\nclick cmdOK\n");
  bench.ExpectKeys("[DIDRedirect]\n001=1|1|2|3|F\n004=1|11|12|1|06\n005=9|3|4|0|004\n");
}

TEST(DidRedirectEditor, RevertingATypeChangeKeepsTheTarget) {
  for (const char* back : {"press Down\npress Escape\n", "press Down\npress Up\npress Down\npress Up\n"}) {
    ExpectEdit("frmDIDRedirect", std::string(kNumbers) + "[DIDRedirect]\n001=1|0012|99|0|001\n",
               std::string("go 1 4\npress Backspace\n") + back + "click cmdOK\n", "",
               "[DIDRedirect]\n001=1|0012|99|0|001\n");
  }
}

TEST(PbxLinkEditor, SelectsByTextAndWritesEveryRow) {
  ExpectEdit("frmSetRoute", "[TblRoute]\nPID=3\nGW=15\n01=0|1\n02=A|B\n03=4|F\n",
             "value cmbPID\nvalue cmbGW\ngo 3 Device\npick 0\nclick cmdOK\n", "3\n15",
             "[TblRoute]\nPID=3\nGW=15\n01=F|1\n02=A|B\n03=4|0\n16=F|F\n");
  ExpectEdit("frmSetRoute", "[TblRoute]\nPID=99\n", "value cmbPID\nvalue cmbGW\n", "0\n1", "");
}

constexpr const char* kSelectAll = "select 1 1 40 9\nclick mnu_cut\n";

std::string Lists(const std::vector<int>& ends) {
  std::string text = "[Route_List]\nMax=50\n";
  int list = 0;
  for (const int end : ends) text += Padded(++list, 2) + "=" + std::to_string(end) + "\n";
  return text;
}

constexpr const char* kRoutes =
    "[Route]\nMax=200\n001=02|1|0|F|F|F|F|1|1\n002=01|0|2|9|12|0800|1759|P1|N\n003=02|F|0|F|F|F|F|3|3\n"
    "004=F|F|0|F|F|F|F|4|4\n[Group_Out]\nMax=32\n01=001\n02=002|003\n03=\n";

/** Type Send of the routes in the table. */
std::vector<std::string> Shown(EditorBench& bench) {
  std::vector<std::string> shown;
  for (int row = 1; row <= bench.editor->table()->rows(); ++row) {
    if (!bench.editor->table()->IsBlank(row)) shown.push_back(bench.editor->table()->Cell(row, 8));
  }
  return shown;
}

TEST(RouteListEditor, UnpacksAndPacksTheLists) {
  EditorBench bench(Lists({0, 3, 3, 5}) + kRoutes);
  EXPECT_THAT(bench.Run("frmRoute", "list cmbMask\n"), ElementsAre("Group Out 1", "Group Out 2"));
  EXPECT_THAT(Shown(bench), IsEmpty());
  bench.Go("click lsRoute(1)\n");
  EXPECT_THAT(Shown(bench), ElementsAre("1", "P1"));
  bench.Go("go 3 8\ntype 7\nclick lsRoute(0)\ngo 1 Group\npick \"Group Out 2\"\nclick cmdOK\n");
  bench.ExpectKeys(
      "[Route]\n001=02|F|0|F|F|F|F|F|F\n002=01|0|2|9|12|0800|1759|P1|N\n"  // sorted by group
      "003=02|1|0|F|F|F|F|1|1\n004=F|F|0|F|F|F|F|7|F\n"  // a route without a group comes last and is kept
      "005=02|F|0|F|F|F|F|3|3\n006=F|F|0|F|F|F|F|4|4\n[Route_List]\n01=2\n02=5\n50=7\n");
}

TEST(RouteListEditor, KeepsARouteWithoutAGroupAfterABlankRow) {
  ExpectEdit("frmRoute", Lists({4}) + kRoutes,
             "select 1 1 1 9\nclick mnu_cut\nclick cmdSort\ngo 3 1\npress Delete\ngo 3 2\npress Delete\n"
             "click cmdOK\n",
             "", "[Route_List]\n01=3\n[Route]\n-003\n");
}

TEST(RouteListEditor, ClearsReferencesToEmptiedLists) {
  EditorBench bench(Lists({3, 5}) + kRoutes +
                    "[Route_Map_Digit]\n001=1|F|02|F|0\n002=2|F|101|F|0\n003=3|F|01|F\n"
                    "[DIDRedirect]\n001=1|1|2|1|02\n002=1|3|4|0|002\n");
  bench.Run("frmRoute", std::string("click lsRoute(1)\n") + kSelectAll + "click cmdOK\n");
  bench.ExpectKeys(
      "[Route_List]\n02=3\n[Route_Map_Digit]\n001=1|F|F|F|0\n002=2|F|101|F|0\n003=3|F|01|F\n"
      "[DIDRedirect]\n001=1|1|2|1|F\n002=1|3|4|0|002\n[Route]\n-003\n");
  bench.Run("frmRoute", kSelectAll + std::string("click cmdOK\n"));
  bench.ExpectKeys("[Route_List]\n01=0\n50=0\n");
}

TEST(RouteListEditor, KeepsListsOfMoreThanFortyRoutes) {
  std::string project = Lists({46}) + "[Route]\nMax=40\n";
  for (int route = 1; route <= 45; ++route)
    project += Padded(route, 3) + "=01|0|0|F|F|F|F|" + std::to_string(route) + "|F\n";
  EditorBench bench(project + "210=01|0|0|F|F|F|F|9|F\n");
  bench.Run("frmRoute", "click lsRoute(2)\ngo 1 8\ntype 5\nclick lsRoute(0)\n");
  EXPECT_EQ(bench.editor->table()->rows(), 45);
  bench.Go("click mnu_insert_row\nclick cmdOK\n");  // there is no room for another row
  EXPECT_EQ(bench.lines, std::vector<std::string>{"box: Over limit data you cannot add. "});
  bench.ExpectKeys("[Route_List]\n01=46\n[Route]\n045=01|0|0|F|F|F|F|45|F\n-210\n");
  bench.Run("frmRoute", "go 1 1\nclick mnu_del_row\n");
  EXPECT_EQ(bench.editor->table()->rows(), 44);
  bench.Go("select 1 1 5 9\nclick mnu_del_row\n");
  EXPECT_EQ(bench.editor->table()->rows(), 40);
}

TEST(RouteListEditor, ReadsInvalidEnds) {
  // The ends, and Type Send of the second list.
  const std::pair<std::vector<int>, std::vector<std::string>> cases[] = {
      {{5, 3}, {}}, {{3, 0}, {}}, {{3, 2000000000}, {"3", "4"}}, {{-4, 3}, {"1", "P1"}}};
  for (const auto& [ends, second] : cases) {
    EditorBench bench(Lists(ends) + kRoutes);
    bench.Run("frmRoute", "click lsRoute(1)\n");
    EXPECT_EQ(Shown(bench), second);
  }
}

}  // namespace
}  // namespace tarvok::test
