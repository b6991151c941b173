// The route map, the incoming lists, and the tables of E1 links and their numbers.

#include "tests/editors/editor_bench.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kLists = "[Route_List]\nMax=50\n01=2\n02=2\n03=4\n04=3\n05=4\n06=5\n";
constexpr const char* kNumbers =
    "[Assign]\nMax=500\nNow=4\n001=100|0|F|0|F\n002=200|0|F|0|F\n003=F|F|F|F|F\n004=100|0|F|0|F\n005=500|F|F|"
    "F|F\n";
constexpr const char* kLinks = "[E1Map]\nMax=10\nNow=10\n01=001|002|1\n02=001|F|0\n03=002|003|2\n";
constexpr const char* kPorts =
    "[Port_Def]\nMax=500\nNow=500\n001=1|1|6|F|F|F|02|003|F\n002=1|2|6|F|F|F|001|000|F\n003=1|3|6\n004=2|1|"
    "2\n";

TEST(FrmRouteMap, SavesEveryRowInOrder) {
  EditorBench bench(
      std::string(kLists) +
      "[Route_Map_Digit]\n001=9|7|04|5|300\n002=1X|0|101|F\n003=F|F|F|F|F\n004=20|1|07|1|255\n");
  EXPECT_THAT(bench.Run("frmRouteMap", "list cmbMask2\ngo 5 Digit\ntype 3\n"),
              ElementsAre("Extension", "List 1", "List 3", "List 6"));
  EXPECT_THAT(bench.Go("click cmdOK\n"), IsEmpty());
  bench.ExpectKeys(
      "[Route_Map_Digit]\n001=3|F|F|F|0\n002=9|F|04|0|254\n"  // a list that is offered no more
      "003=20|1|07|1|255\n004=1X|0|101|F|0\n200=F|F|F|F|0\n");
}

TEST(FrmRouteMap, BlanksStandLastBothWays) {
  EditorBench bench("[Route_Map_Digit]\n001=F|0|F|F|0\n002=5|F|F|F|0\n003=XX|F|F|F|0\n004=40|F|F|F|0\n");
  bench.Run("frmRouteMap", "click cmdSort\nclick cmdSort\n");
  std::vector<std::string> digits;
  for (int row = 1; row <= 4; ++row) digits.push_back(bench.Cells(row, 1, row == 4 ? 2 : 1).back());
  EXPECT_THAT(digits, ElementsAre("XX", "40", "5", "DID Grp"));
}

TEST(FrmIncomingLst, ASaveSortsAndThePortsFollow) {
  EditorBench bench(std::string(kNumbers) + kPorts +
                    "[Incoming_List]\nMax=50\nNow=50\n01=Zoo|004|1000|F|5\n02=Bar|002|2000|3000|F\n"
                    "03=F|003|F|F|254\n04=Abc|005|499|F|F\n");
  EXPECT_THAT(bench.Run("frmIncomingLst", "list cmbMask\ngo 5 Name\ntype Cafe\n"),
              ElementsAre("100", "200", "100", "DID", "Map_Digit", "Wait_Comp"));
  bench.Go("select 2 1 2 5\nclick mnu_cut\nclick cmdOK\n");
  bench.ExpectKeys(
      "[Incoming_List]\n01=Abc|005|F|F|F\n"     // above "Now", but there
      "02=Cafe|F|F|F|F\n03=Zoo|004|1000|F|5\n"  // the second of two equal numbers
      "-04\n05=F|F|F|F|254\n"                   // what it pointed at has no number
      "[Port_Def]\n001=1|1|6|F|F|F|F|005|F\n002=1|2|6|F|F|F|003|000|F\n");
}

TEST(FrmIncomingLst, RowsComeAndGoUpToTheMost) {
  EditorBench bench("[Incoming_List]\nMax=3\nNow=3\n02=B|F|F|F|F\n04=D|F|F|F|F\n");
  bench.Run("frmIncomingLst", "");
  EXPECT_EQ(bench.editor->table()->rows(), 4);  // a row in use is shown though it is above "Max"
  bench.Go("go 1 1\nclick mnu_del_row\nclick mnu_AddRow\nclick mnu_AddRow\ntype X\nclick cmdOK\n");
  bench.ExpectKeys("[Incoming_List]\nNow=5\n01=B|F|F|F|F\n03=X|F|F|F|F\n-04\n");
}

TEST(FrmE1Map, RowsFollowALinkAndLeaveOneThatWasEmptied) {
  EditorBench bench(
      std::string(kPorts) + kLinks +
      "[E1Number]\n01=1|12|3\n02=03|5|F\n[DIDRedirect]\n001=1|10|20|3|F\n002=3|1|2|F|F\n003=5|1|2|F|F\n");
  EXPECT_THAT(bench.Run("frmE1Map", "list cmbMask\ngo 1 Mode\npick \"Network Link\"\nclick mnu_Sort_ZA\n"),
              ElementsAre("1/1", "1/2", "1/3"));
  bench.Go("go 2 Start\npress Delete\ngo 2 End\npress Delete\nclick cmdOK\n");
  bench.ExpectKeys(
      "[E1Map]\n01=002|003|2\n02=F|F|3\n10=F|F|0\nNow=10\n[E1Number]\n01=F|12|3\n02=01|5|F\n"
      "[DIDRedirect]\n001=F|10|20|3|F\n002=1|1|2|F|F\n003=5|1|2|F|F\n");  // that link had been empty before
}

TEST(FrmE1Numbering, OffersLinksWithBothPortsAndWritesEveryRow) {
  EditorBench bench(std::string(kPorts) + kLinks + "[E1Number]\n02=3|5|18\n");
  EXPECT_THAT(bench.Run("frmE1Numbering", "go 1 1\nlist cmbMask\npick 1\nclick cmdOK\n"),
              ElementsAre("1", "3"));
  bench.ExpectKeys("[E1Number]\n01=01|F|F\n02=03|5|18\n20=F|F|F\n");
}

TEST(FrmDIDRedirect, WhatMapNumberOffersIsByTheType) {
  EditorBench bench(
      std::string(kLists) + kNumbers + kPorts + kLinks +
      "[DIDRedirect]\n001=1|1|2|1|03\n002=9|3|4|0|004\n003=1|5|6|4|F\n004=1|7|8|1|02\n005=F|F|F|7|01\n");
  EXPECT_THAT(bench.Run("frmDIDRedirect", "go 1 5\nlist cmbMask3\n"),
              ElementsAre("List 1", "List 3", "List 6"));
  EXPECT_THAT(bench.Go("go 2 5\nlist cmbMask3\n"), ElementsAre("100", "200", "100", "500"));
  bench.Go("go 1 \"Map Type\"\npick \"Not Exist\"\ngo 3 4\npick Number\ngo 3 5\npick 500\nclick cmdOK\n");
  bench.ExpectKeys(
      "[DIDRedirect]\n001=1|1|2|3|F\n002=9|3|4|0|004\n"  // the second of two equal numbers
      "003=1|5|6|0|005\n004=1|7|8|1|02\n"                // a list without routes
      "-005\n");
  bench.Run("frmDIDRedirect",
            "go 6 1\npaste 1\\t11\\t12\\tRoute List\\tList 6\nclick cmdSort\nclick cmdOK\n");
  bench.ExpectKeys("[DIDRedirect]\n001=1|1|2|3|F\n004=1|11|12|1|06\n005=9|3|4|0|004\n");
}

TEST(FrmSetRoute, SelectsByTextAndWritesEveryRow) {
  EditorBench bench("[TblRoute]\nPID=3\nGW=15\n01=0|1\n02=A|B\n03=4|F\n");
  EXPECT_THAT(bench.Run("frmSetRoute", "value cmbPID\nvalue cmbGW\ngo 3 Device\npick 0\nclick cmdOK\n"),
              ElementsAre("3", "15"));
  bench.ExpectKeys("[TblRoute]\nPID=3\nGW=15\n01=F|1\n02=A|B\n03=4|0\n16=F|F\n");
  EditorBench none("[TblRoute]\nPID=99\n");
  EXPECT_THAT(none.Run("frmSetRoute", "value cmbPID\nvalue cmbGW\n"), ElementsAre("0", "1"));
}

}  // namespace
}  // namespace tarvok::test
