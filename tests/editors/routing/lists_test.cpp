// The editors of routing that are no plain table: groups out, classes, tenants.

#include "tests/editors/editor_bench.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTrunks =
    "[Port_Def]\nMax=500\nNow=4\n001=1|1|2|F\n002=1|2|2|F\n003=2|1|1|F\n004=3|1|6|F\n005=3|2|6|F\n"
    "[Route]\nMax=200\n001=01|0|0|F|F|F|F|1|1\n002=02|0|0|F|F|F|F|1|1\n";

TEST(FrmGroupOut, MovesTrunksAndKeepsMembersThatAreNone) {
  EditorBench bench(std::string(kTrunks) + "[Group_Out]\nMax=32\nNow=9\n01=002|003\n02=004|F|0\n");
  EXPECT_THAT(bench.Run("frmGroupOut", "list ListView1\nlist ListView2\n"), ElementsAre("1/1", "1/2"));
  bench.Go("click cmdAdd\nclick ListView1(0)\nclick cmdAdd\nlist ListView1\nlist ListView2\n");
  EXPECT_THAT(bench.lines, ElementsAre("1/2", "1/1"));
  bench.Go("click lsGroup(1)\nclick ListView2(0)\nclick cmdDel\nclick cmdOK\n");
  EXPECT_EQ(bench.Get("Group_Out", "01"), "002|003|001");  // port 3 is no trunk any more
  EXPECT_EQ(bench.Get("Group_Out", "02"), "");
  EXPECT_EQ(bench.Get("Group_Out", "Now"), "3");
  EXPECT_EQ(bench.Get("Route", "001"), "01|0|0|F|F|F|F|1|1");
  EXPECT_EQ(bench.Get("Route", "002"), "F|0|0|F|F|F|F|1|1");
  EXPECT_TRUE(bench.Has("Group_Out", "32"));
}

TEST(FrmGroupOut, StopsAtTheMostMembers) {
  EditorBench bench(std::string(kTrunks) + "[Group_Out]\nNow=1023\n");
  const std::vector<std::string> said = bench.Run(
      "frmGroupOut", "click ListView1(0)\nclick cmdAdd\nclick ListView1(0)\nclick cmdAdd\nlist ListView2\n");
  EXPECT_THAT(said, ElementsAre("box: Over limit data you cannot add. ", "1/1"));
}

constexpr const char* kClasses =
    "[COR]\nMax=20\n01=9||A\n03=1|20\n03A=55\n04A=7\n[COR_Group]\nMax=15\n01=03\n02=1|3|04|03\n03=01\n04="
    "\n05=12\n"
    "[PortConfig]\nMax=20\nNow=20\n01=01|02|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|01|F\n02=02|01|0\n03=04|03|0\n";

TEST(FrmClassDigit, AnEmptiedClassLeavesItsGroupsAndTheyTheirProfiles) {
  EditorBench bench(kClasses);
  bench.Run("frmClassDigit",
            "click lsCOR(2)\nselect 1 1 21 2\nclick mnu_delete\nclick lsCOR(3)\ngo 5 2\ntype 8\n"
            "click lsCOR(2)\nclick cmdOK\n");
  EXPECT_EQ(bench.Get("COR", "03"), "");
  EXPECT_EQ(bench.Get("COR", "04A"), "7|8");
  EXPECT_EQ(bench.Get("COR", "01"), "9||A");  // not touched
  EXPECT_TRUE(bench.Has("COR", "20A"));
  EXPECT_EQ(bench.Get("COR_Group", "01"), "");
  EXPECT_EQ(bench.Get("COR_Group", "02"), "1|04");
  EXPECT_EQ(bench.Get("COR_Group", "03"), "01");
  EXPECT_EQ(bench.Get("PortConfig", "01"), "F|02|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|01|F");
  EXPECT_EQ(bench.Get("PortConfig", "02"), "02|F|0");
  EXPECT_EQ(bench.Get("PortConfig", "03"), "F|03|0");  // group 4 has no class either
}

TEST(FrmClassDigit, SortsTheColumnInViewAndTakesTwentyNumbers) {
  EditorBench bench(kClasses);
  bench.Run("frmClassDigit", "click lsCOR(2)\ngo 2 2\ntype 3\ngo 1 2\nclick cmdSort\n");
  EXPECT_EQ(bench.editor->table()->Cell(1, 2), "3");
  EXPECT_EQ(bench.editor->table()->Cell(1, 1), "20");
  bench.Go(
      "click lsCOR(5)\ngo 1 1\npaste "
      "1\\n2\\n3\\n4\\n5\\n6\\n7\\n8\\n9\\n10\\n11\\n12\\n13\\n14\\n15\\n16\\n17\\n18\\n19\\n20"
      "\ngo 21 1\ntype 5\ngo 21 2\ntype 5\n");
  EXPECT_EQ(bench.editor->table()->rows(), 21);
  EXPECT_EQ(bench.editor->table()->Cell(21, 1), "");
  EXPECT_EQ(bench.editor->table()->Cell(21, 2), "5");
}

TEST(FrmCORGroup, OffersClassesInUseAndKeepsOthers) {
  EditorBench bench(kClasses);
  EXPECT_THAT(bench.Run("frmCORGroup",
                        "list cmbMask\nclick lsCORGroup(0)\ngo 1 1\npick \"\"\nclick lsCORGroup(4)\n"
                        "go 3 1\npick \"COR 4\"\nshow\n"),
              testing::Contains("1\tCOR 12"));
  EXPECT_THAT(std::vector<std::string>(bench.lines.begin(), bench.lines.begin() + 3),
              ElementsAre("COR 1", "COR 3", "COR 4"));
  bench.Go("click cmdOK\n");
  EXPECT_EQ(bench.Get("COR_Group", "01"), "");
  EXPECT_EQ(bench.Get("COR_Group", "02"), "1|3|04|03");  // as it stood
  EXPECT_EQ(bench.Get("COR_Group", "05"), "12|04");
  EXPECT_EQ(bench.Get("PortConfig", "02"), "02|F|0");
}

TEST(FrmTenan, CellsLinesAndPagesOfTheWholeMatrix) {
  EditorBench bench("[Tenan]\nMax=16\n102=101\n103=11111111111111111\n");
  bench.Run("frmTenan",
            "click cell(1,1)\nclick cell(32,32)\nclick cell(2,3)\nset HScroll1 16\nset VScroll1 3\n"
            "click cmdRow(15)\nclick cmdCol(0)\nclick cmdCol(0)\nvalue cmdRow(15)\nvalue Frame1\n");
  EXPECT_THAT(bench.lines, ElementsAre("19", "Setup Tenan -- ( Day )"));
  bench.Go(
      "set tbsTenan Night\nvalue Frame1\nvalue cell(1,1)\nclick cmdSetAll\nclick cell(4,17)\nclick cmdOK\n");
  EXPECT_THAT(bench.lines, ElementsAre("Setup Tenan -- ( Night )", "0"));
  const std::string none(16, '0');
  const std::string all(16, '1');
  EXPECT_EQ(bench.Get("Tenan", "101"), "0000000000000001");
  EXPECT_EQ(bench.Get("Tenan", "102"), "0000000000000001");  // read from its right end
  EXPECT_EQ(bench.Get("Tenan", "103"), all);
  EXPECT_EQ(bench.Get("Tenan", "319"), "1111111111111110");  // the row on, the column on and off
  EXPECT_EQ(bench.Get("Tenan", "119"), none);                // out of the window
  EXPECT_EQ(bench.Get("Tenan", "332"), "1000000000000000");
  EXPECT_EQ(bench.Get("Tenan", "204"), all);
  EXPECT_EQ(bench.Get("Tenan", "404"), "1111111111111110");
  EXPECT_EQ(bench.Get("Tenan", "Max"), "16");
}

TEST(FrmTenan, LookingIsNoChange) {
  EditorBench bench("[Tenan]\n101=1\n");
  EXPECT_THAT(bench.Run("frmTenan", "set VScroll1 99\nvalue VScroll1\nset tbsTenan 1\nclick cmdCancel\n"),
              ElementsAre("16"));
}

// A file that a hand has spoiled opens, and is saved with what the form changed.
TEST(RoutingForms, RubbishIsNoObstacle) {
  std::string rubbish;
  for (const char* section :
       {"Route_Map_Digit", "Route_List", "Route", "Group_Out", "COR", "COR_Group", "Incoming_List", "E1Map",
        "E1Number", "DIDRedirect", "TblRoute", "Port_Def", "Assign"}) {
    rubbish += std::string("[") + section + "]\nMax=-5\nNow=99999999999\nPID=x\nGW=-1\n";
    for (const char* key : {"1", "01", "001", "02", "002", "03A"})
      rubbish += std::string(key) + "=" + "|99999999999||F|-1|x|1|2|3|4|5|6\n";
    rubbish += "03=1\n003=1\n";
  }
  for (const Editor& editor : RoutingEditors()) {
    EditorBench bench(rubbish + "[Tenan]\n101=12345\n301=\n201=11111111111111111111\n");
    bench.Run(editor.name.form, "");
    bench.state.DataChanged = true;
    bench.Go("click cmdOK\n");
    EXPECT_TRUE(bench.editor->closed()) << editor.name.form;
    EXPECT_THAT(bench.lines, IsEmpty()) << editor.name.form;
    EXPECT_EQ(bench.Get("Assign", "002"), "|99999999999||F|-1|x|1|2|3|4|5|6") << editor.name.form;
  }
}

}  // namespace
}  // namespace tarvok::test
