// The editors of routing that are no plain table: groups out, classes, tenants.

#include "tests/editors/editor_bench.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;

constexpr const char* kTrunks =
    "[Port_Def]\nMax=500\nNow=4\n001=1|1|2|F\n002=1|2|2|F\n003=2|1|1|F\n004=3|1|6|F\n005=3|2|6|F\n"
    "[Route]\nMax=200\n001=01|0|0|F|F|F|F|1|1\n002=02|0|0|F|F|F|F|1|1\n";

TEST(FrmGroupOut, MovesTrunksAndKeepsMembersThatAreNone) {
  EditorBench bench(std::string(kTrunks) + "[Group_Out]\nMax=32\nNow=9\n01=002|003\n02=004|F|0\n");
  EXPECT_THAT(bench.Run("frmGroupOut", "list ListView1\nlist ListView2\n"), ElementsAre("1/1", "1/2"));
  bench.Go("click cmdAdd\nclick ListView1(0)\nclick cmdAdd\nlist ListView1\nlist ListView2\n");
  EXPECT_THAT(bench.lines, ElementsAre("1/2", "1/1"));
  bench.Go("click lsGroup(1)\nclick ListView2(0)\nclick cmdDel\nclick cmdOK\n");
  bench.ExpectKeys(
      "[Group_Out]\n01=002|003|001\n"  // port 3 is no trunk any more
      "02=\nNow=3\n32=\n[Route]\n001=01|0|0|F|F|F|F|1|1\n002=F|0|0|F|F|F|F|1|1\n");
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
  bench.ExpectKeys(
      "[COR]\n03=\n04A=7|8\n01=9||A\n"  // not touched
      "20A=\n[COR_Group]\n01=\n02=1|04\n03=01\n[PortConfig]\n01=F|02|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|01|F\n"
      "02=02|F|0\n03=F|03|0\n");  // group 4 has no class either
}

TEST(FrmClassDigit, SortsTheColumnInViewAndTakesTwentyNumbers) {
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

TEST(FrmCORGroup, OffersClassesInUseAndKeepsOthers) {
  EditorBench bench(kClasses);
  EXPECT_THAT(bench.Run("frmCORGroup",
                        "list cmbMask\nclick lsCORGroup(0)\ngo 1 1\npick \"\"\nclick lsCORGroup(4)\n"
                        "go 3 1\npick \"COR 4\"\nshow\n"),
              testing::Contains("1\tCOR 12"));
  EXPECT_THAT(std::vector<std::string>(bench.lines.begin(), bench.lines.begin() + 3),
              ElementsAre("COR 1", "COR 3", "COR 4"));
  bench.Go("click cmdOK\n");
  bench.ExpectKeys(
      "[COR_Group]\n01=\n02=1|3|04|03\n"  // as it stood
      "05=12|04\n[PortConfig]\n02=02|F|0\n");
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
  bench.ExpectKeys(
      "[Tenan]\n101=0000000000000001\n102=0000000000000001\n"  // read from its right end
      "103=1111111111111111\n319=1111111111111110\n"           // the row on, the column on and off
      "119=0000000000000000\n332=1000000000000000\n"           // out of the window
      "204=1111111111111111\n404=1111111111111110\nMax=16\n");
}

TEST(FrmTenan, LookingIsNoChange) {
  EditorBench bench("[Tenan]\n101=1\n");
  EXPECT_THAT(bench.Run("frmTenan", "set VScroll1 99\nvalue VScroll1\nset tbsTenan 1\nclick cmdCancel\n"),
              ElementsAre("16"));
}

}  // namespace
}  // namespace tarvok::test
