// The routing editors with lists or pages, and typing in the cells of the others.

#include "tests/editors/editor_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

constexpr const char* kTrunks =
    "[Port_Def]\nMax=500\nNow=4\n001=1|1|2|F\n002=1|2|2|F\n003=2|1|1|F\n004=3|1|6|F\n005=3|2|6|F\n"
    "[Route]\nMax=200\n001=01|0|0|F|F|F|F|1|1\n002=02|0|0|F|F|F|F|1|1\n";

TEST(GroupOutEditor, MovesTrunksAndKeepsOtherMembers) {
  ExpectEdit("frmGroupOut", std::string(kTrunks) + "[Group_Out]\nMax=32\nNow=9\n01=002|003\n02=004|F|0\n",
             "list ListView1\nlist ListView2\nclick cmdAdd\nclick ListView1(0)\nclick cmdAdd\nlist "
             "ListView1\nlist ListView2\n"
             "click lsGroup(1)\nclick ListView2(0)\nclick cmdDel\nclick cmdOK\n",
             "1/1\n1/2\n1/2\n1/1\n" + AskedToClear("Group Out 02 is used in 1"),
             "[Group_Out]\n01=002|003|001\n"  // port 3 is no longer a trunk
             "02=\nNow=3\n32=\n[Route]\n001=01|0|0|F|F|F|F|1|1\n002=F|0|0|F|F|F|F|1|1\n");
}

TEST(GroupOutEditor, StopsAtTheLimitOfMembers) {
  ExpectEdit("frmGroupOut", std::string(kTrunks) + "[Group_Out]\nNow=1023\n",
             "click ListView1(0)\nclick cmdAdd\nclick ListView1(0)\nclick cmdAdd\nlist ListView2\n",
             "box: Over limit data you cannot add. \n1/1", "");
}

constexpr const char* kClasses =
    "[COR]\nMax=20\n01=9||A\n03=1|20\n03A=55\n04A=7\n[COR_Group]\nMax=15\n01=03\n02=1|3|04|03\n03=01\n04="
    "\n05=12\n06=F|03|0\n"
    "[PortConfig]\nMax=20\nNow=20\n01=01|02|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|01|F\n02=02|01|0\n03=04|03|0\n"
    "04=06|03|0\n";

TEST(BanAllowEditor, EmptyingAClassRemovesItFromGroupsAndProfiles) {
  ExpectEdit(
      "frmClassDigit", kClasses,
      "click lsCOR(2)\nselect 1 1 21 2\nclick mnu_delete\nclick lsCOR(3)\ngo 5 2\ntype 8\n"
      "click lsCOR(2)\nclick cmdOK\n",
      "ask: Do you want to delete? -> Yes\n" + AskedToClear("5 rows that you remove are used in 9"),
      "[COR]\n03=\n04A=7|8\n01=9||A\n"  // not changed
      "20A=\n[COR_Group]\n01=\n02=1|04\n03=01\n[PortConfig]\n01=F|02|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|01|F\n"
      "02=02|F|0\n03=F|03|0\n"  // group 4 has no class either
      "04=F|03|0\n");           // nor has group 6: unset members do not count
}

TEST(BanAllowEditor, SortsTheCurrentColumnAndAcceptsTwentyNumbers) {
  EditorBench bench(kClasses);
  bench.Run("frmClassDigit", "click lsCOR(2)\ngo 2 2\ntype 3\ngo 1 2\nclick cmdSort\n");
  EXPECT_THAT(bench.Cells(1, 1, 2), ElementsAre("20", "3"));
  bench.Go(
      "click lsCOR(5)\ngo 1 1\npaste "
      "1\\n2\\n3\\n4\\n5\\n6\\n7\\n8\\n9\\n10\\n11\\n12\\n13\\n14\\n15\\n16\\n17\\n18\\n19\\n20"
      "\ngo 21 1\ntype 5\ngo 21 2\ntype 5\n");
  EXPECT_EQ(bench.editor->table()->rows(), 21);
  EXPECT_THAT(bench.Cells(21, 1, 2), ElementsAre("", "5"));
}

TEST(BanNumberGroupEditor, OffersClassesInUseAndKeepsOthers) {
  EditorBench bench(kClasses);
  EXPECT_THAT(bench.Run("frmCORGroup",
                        "list cmbMask\nclick lsCORGroup(0)\ngo 1 1\npick \"\"\nclick lsCORGroup(4)\n"
                        "go 3 1\npick \"COR 4\"\nshow\n"),
              testing::Contains("1\tCOR 12"));
  EXPECT_THAT(std::vector<std::string>(bench.lines.begin(), bench.lines.begin() + 3),
              ElementsAre("COR 1", "COR 3", "COR 4"));
  bench.Go("click cmdOK\n");
  bench.ExpectKeys(
      "[COR_Group]\n01=\n02=1|3|04|03\n"  // unchanged
      "05=12|04\n[PortConfig]\n02=02|F|0\n");
}

TEST(TenantEditor, EditsCellsLinesAndPages) {
  ExpectEdit(
      "frmTenan", "[Tenan]\nMax=16\n102=101\n103=11111111111111111\n",
      "click cell(1,1)\nclick cell(32,32)\nclick cell(2,3)\nset HScroll1 16\nset VScroll1 3\n"
      "click cmdRow(15)\nclick cmdCol(0)\nclick cmdCol(0)\nvalue cmdRow(15)\nvalue Frame1\n"
      "set tbsTenan Night\nvalue Frame1\nvalue cell(1,1)\nclick cmdSetAll\nclick cell(4,17)\nclick cmdOK\n",
      "19\nSetup Tenan -- ( Day )\nSetup Tenan -- ( Night )\n0",
      "[Tenan]\n101=0000000000000001\n102=0000000000000001\n"  // read from the right
      "103=1111111111111111\n319=1111111111111110\n"           // the row switched on, the column on and off
      "119=0000000000000000\n332=1000000000000000\n"           // outside the window
      "204=1111111111111111\n404=1111111111111110\nMax=16\n");
}

TEST(EveryEditor, LookingDoesNotChangeTheProject) {
  const std::string routes = "[Route_List]\n01=2\n[Route]\n002=01|0|0|F|F|F|F|1|1\n";
  ExpectEdit("frmTenan", "[Tenan]\n101=1\n",
             "set VScroll1 99\nvalue VScroll1\nset tbsTenan 1\nclick cmdCancel\n", "16", "[Tenan]\n101=1\n");
  ExpectEdit("frmRoute", routes, "click lsRoute(1)\nclick lsRoute(0)\nclick cmdCancel\n", "", routes);
}

constexpr const char* kProject =
    "[Route_List]\nMax=50\n01=2\n[Route]\nMax=200\n001=01|0|0|F|F|F|F|1|1\n[Group_Out]\nMax=32\n01=001\n"
    "[E1Map]\n01=001|002|0\n[Incoming_List]\nMax=50\n[Route_Map_Digit]\n001=12|F|101|1|26\n002=F|F|F|F|255\n";

constexpr const char* kMap = "frmRouteMap";
constexpr const char* kRoute = "frmRoute";
constexpr const char* kIncoming = "frmIncomingLst";
constexpr const char* kDid = "frmDIDRedirect";

TEST(Typing, EnforcesTheRuleOfTheColumn) {
  // The case, the form, a script, and the text of the current cell afterwards.
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"first key replaces", kMap, "go 1 Digit\ntype p1", "P1"},
      {"the later set has no P", kMap, "go 1 1\ntype 9pU:z", "9:Z"},
      {"the first set has no colon", kMap, "go 1 1\ntype :z1", "Z1"},
      {"a rejected key opens an empty field and keeps the cell", kMap, "go 1 1\ntype q", "12"},
      {"and return moves on", kMap, "go 1 1\ntype q\npress Return\npress Up", "12"},
      {"escape restores the cell", kMap, "go 1 1\ntype 34\npress Escape", "12"},
      {"backspace on the cell", kMap, "go 1 1\npress Backspace", "1"},
      {"nineteen characters", kMap, "go 1 1\ntype 123456789012345678901", "1234567890123456789"},
      {"release accepts one flag", kMap, "go 1 4\ntype 201", "0"},
      {"timeout up to 254", kMap, "go 1 Timeout\ntype 255", "25"},
      {"timeout after 25", kMap, "go 1 Timeout\ntype 2549", "254"},
      {"timeout after 26", kMap, "go 1 Timeout\ntype 260", "26"},
      {"timeout has no first zero", kMap, "go 1 Timeout\ntype 0", "26"},
      {"a timeout list entry is edited as a whole", kMap, "go 2 Timeout\npress Backspace\ntype 7", "7"},
      {"a timeout list entry is deleted as a whole", kMap, "go 2 5\npress Backspace\npress Backspace", ""},
      {"delete clears a list", kMap, "go 1 \"Route List\"\npress Delete", ""},
      {"hour up to 23", kRoute, "go 1 6\ntype 24", "2"},
      {"minute up to 59", kRoute, "go 1 6\ntype 23659", "2359"},
      {"time starts with two at most", kRoute, "go 1 7\ntype 3", ""},
      {"a digit after P", kRoute, "go 2 8\ntype pX5x", "P5X"},
      {"N only in Type Save", kRoute, "go 2 8\ntype 1n2", "12"},
      {"N in Type Save", kRoute, "go 2 9\ntype 1n2", "1N2"},
      {"route text is appended to the cell", kRoute, "go 1 8\ntype 2", "12"},
      {"time out 254", kIncoming, "go 1 5\ntype 02554", "254"},
      {"names have no pipes", kIncoming, "go 1 1\ntype  a|b c", "ab c"},
      {"did four digits", kDid, "go 1 2\ntype 99*999", "9999"},
      {"link trunks accept sixteen digits", "frmLinkTrunk", "go 1 1\ntype 12a345678901234567",
       "1234567890123456"},
      {"numbering accepts symbols", "frmE1Numbering", "go 1 2\ntype 1*a#", "1*#"},
      {"digit check accepts digits", "frmE1Numbering", "go 1 3\ntype *123", "12"},
      {"classes accept digits of any length", "frmClassDigit", "go 1 1\ntype 9*a#1234567890123456789012345",
       "9*#1234567890123456789012345"}};
  for (const auto& [what, form, script, shown] : cases) {
    EditorBench bench(kProject);
    bench.Run(form, script);
    const TableEditor& table = *bench.editor->table();
    EXPECT_EQ(table.Cell(table.current_row(), table.current_column()), shown) << what;
  }
}

}  // namespace
}  // namespace tarvok::test
