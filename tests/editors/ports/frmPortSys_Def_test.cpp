#include "sections/ports/port_def.h"
#include "sections/used_by.h"
#include "store/number_text.h"
#include "tests/editors/ports/every_reference.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PortDefine, ASaveSortsAndEveryReferenceStaysOnItsPort) {
  EditorBench bench(EveryReference());
  EXPECT_THAT(
      bench.Run("frmPortSys_Def", "click mnu_Sort_ZA\ngo 1 PSW\ntype 1\npress Backspace\nclick cmdOK\n"),
      IsEmpty());
  bench.ExpectKeys(
      "[Port_Def]\n001=1|1|1|F*6|77|F*5|001|F*7\n002=1|2|1|F*12|002|F*7\n003=2|1|2|F*20\n005=3|2|6|F*20\n"
      "Now=5\n[Assign]\n001=201|0|001|2|002\n002=200|0|002|F|F\n003=300|1|1|F|001\n[BOSS]\n01=001|002\n"
      "02=002|F\n[E1Map]\n01=004|005|0\n[Group_Out]\n01=003|004\n02=005\nNow=3\n"
      "[SystemConfig]\nPbx=0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|001|0|0|0\n[HuntGroup]\n01=001|002\n"
      "[Incoming_List]\n01=Night|001|1000|002|20\n[DIDRedirect]\n001=1|0|9|0|001\n"
      "[Account]\n001=11|22|004|F|F|F\n002=12|22|005|F|F|F\n");
}

TEST(PortDefine, WhatReferredToAPortThatIsGoneIsGone) {
  for (const char* how : {"select 4 1 5 3\ncut\nselect 1 1 1 3\ncut\n",
                          "go 5 1\nclick cmdDelRow\ngo 4 1\n"
                          "click cmdDelRow\ngo 1 1\nclick cmdDelRow\n"}) {
    EditorBench bench(EveryReference());
    bench.Run("frmPortSys_Def", std::string(how) + "click cmdOK\n");
    bench.ExpectKeys(
        "[Assign]\n001=201|0|F|2|002\n002=200|0|F|F|F\n[BOSS]\n01=F|F\n[Group_Out]\n01=001\nNow=2\n"
        "[SystemConfig]\nPbx=0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|F|0|0|0\n[HuntGroup]\n01=001|002\n");
    EXPECT_EQ(bench.Get("E1Map", "01").substr(0, 2), "F|");
  }
}

TEST(PortDefine, AnIncompletePortKeepsItsNumberAndItsGroup) {
  EditorBench bench(
      "[Port_Def]\n001=3|1|2|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F\nNow=1\n[Group_Out]\n03=001\nNow=1\n["
      "BOSS]\n01=001|F\n");
  EXPECT_THAT(bench.Run("frmPortSys_Def", "go 1 Channel\npress Delete\ngo 1 Number\ntype 300\nclick cmdOK\n"),
              IsEmpty());
  bench.ExpectKeys(
      "[Port_Def]\n001=3|F|2|F*12|001|F*7\n[Assign]\n001=300|0|001|F|F\n[Group_Out]\n03=001\nNow=1\n"
      "[BOSS]\n01=F|F\n");
}

TEST(PortDefine, AGroupKeepsLinesOnly) {
  EditorBench bench(EveryReference());
  bench.Run("frmPortSys_Def", "go 2 Type\npick SLIC 16\nclick cmdOK\n");
  bench.ExpectKeys("[Group_Out]\n01=003|004\n02=\nNow=2\n");
}

TEST(PortDefine, NumbersAreLinkedToTheirPorts) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"a number that changes keeps its row", "go 5 Number\npress Delete\ntype 250\n",
       "[Assign]\n001=250|0|001|2|002\n[Port_Def]\n001=1|1|1|F*6|77|F*5|001|F*7\n"},
      {"a number that is taken away is gone with all that refers to it", "go 4 Number\npress Delete\n",
       "[Assign]\n002=F|F|F|F|F\n[Port_Def]\n002=1|2|1|F*20\n[HuntGroup]\n01=001\nNow=1\n"
       "[Incoming_List]\n01=Night|001|1000|F|20\n"},
      {"a number that moves to another port takes its row along",
       "go 4 Number\npress Delete\ngo 3 Number\ntype 200\n",
       "[Assign]\n002=200|0|003|F|F\n[Port_Def]\n002=1|2|1|F*20\n003=2|1|2|F*12|002|F*7\n[HuntGroup]\n02="
       "002\n"},
      {"two ports change their numbers",
       "go 4 Number\npress Delete\ntype 201\ngo 5 Number\npress Delete\ntype 200\n",
       "[Assign]\n001=200|0|001|2|002\n002=201|0|002|F|F\n"},
      {"a new number takes the first free row, above the rows in use if need be",
       "go 3 Number\ntype 1234567\n",
       "[Assign]\n004=123456|0|003|F|F\nNow=4\n[Port_Def]\n003=2|1|2|F*12|004|F*7\n"},
      {"a new number does not inherit what meant the old one",
       "go 4 Number\npress Delete\ngo 3 Number\ntype 999\n",
       "[Assign]\n002=999|0|003|F|F\n[HuntGroup]\n02=\n"},
      {"the number of a group stays what it is", "go 3 Number\ntype 300\n",
       "[Assign]\n003=300|1|1|F|001\n[Port_Def]\n003=2|1|2|F*12|003|F*7\n"},
  };
  for (const auto& [what, script, keys] : cases) {
    SCOPED_TRACE(what);
    EditorBench bench(EveryReference());
    EXPECT_THAT(bench.Run("frmPortSys_Def", std::string(script) + "click cmdOK\n"), IsEmpty());
    bench.ExpectKeys(keys);
  }
}

TEST(PortDefine, ANumberWithoutARowLeavesTheFormOpen) {
  std::string project = "[Port_Def]\nNow=1\n001=" + Port("1|1|1") + "\n[Assign]\nNow=500\n";
  for (int row = 1; row <= 500; ++row) project += Padded(row, 3) + "=5|1|1\n";
  EditorBench bench(project);
  const std::string before = bench.Bytes();
  EXPECT_THAT(bench.Run("frmPortSys_Def", "go 1 Number\ntype 77\nclick cmdOK\n"),
              ElementsAre("box: Over limit data you cannot add. "));
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_FALSE(bench.editor->closed());
}

TEST(PortDefine, KeysThatWouldPassTheLimitAreDropped) {
  EditorBench bench("[Port_Def]\nNow=2\n");
  bench.Run("frmPortSys_Def",
            "go 1 Card\ntype 1a23\ngo 1 Channel\ntype 1\ngo 1 Config\ntype 0210\ngo 1 Tenan\ntype 035\n"
            "go 1 \"Pickup Group\"\ntype 991\ngo 1 PSW\ntype 12345\ngo 1 \"Expand T\"\npick USE\n"
            "go 2 1\ntype 13\ngo 2 2\ntype 2\ngo 2 Config\ntype 30\ngo 2 Tenan\ntype 33\nclick cmdOK\n");
  bench.ExpectKeys(
      "[Port_Def]\n001=12|1|F|20|3|99|F|F|F|F|F|F|F|F|F|F|1234|F|F|F|F|F|1\n"
      "002=13|2|F|3|3|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F\n");
}

TEST(PortDefine, OldAndBrokenRowsComeDownToTheirLimits) {
  EditorBench bench(
      "[Port_Def]\nNow=3\n001=1|5|4|33|44|100|002|051|1|1|2|3|4|5|99\n002=1|3|4|F|F|F|F|F|F|F|F|F|F|F|F|700\n"
      "003=F|F|F|5\n004=1|6|15\n[Incoming_List]\n01=Day\n02=Day\n");
  EXPECT_THAT(
      bench.Run("frmPortSys_Def", "show\ngo 1 PSW\ntype 1\nclick cmdOK\n"),
      ElementsAre("\tCard\tChannel\tType\tConfig\tTenan\tPickup Group\tIncoming D\tIncoming N\tNumber\t"
                  "PSW\tExpand T",
                  "1\t1\t5\tSLIC 8 (4)\t33\t44\t100\tDay\t\t\t\t", "2\t1\t3\t4 DIGITAL\t\t\t\t\t\t\t\t",
                  "3\t\t\t\t5\t\t\t\t\t\t\t", "4\t1\t6\t\t\t\t\t\t\t\t\t"));
  bench.ExpectKeys(
      "[Port_Def]\n001=1|3|4|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F\n"
      "002=1|5|4|20|32|99|002|F|1|1|2|3|4|5|99|F|1|F|F|F|F|F|F\n"
      "003=1|6|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F\n-004\n");
}

TEST(PortInsert, ListsStandInTheirOrder) {
  EditorBench bench;
  EXPECT_THAT(bench.Run("frmPortSys_Def", "list cmbType\n"),
              ElementsAre("4 DIGITAL 8 Ext", "8 DIGITAL", "12 DIGITAL", "DISA / VM", "E & M", "E1 (1) 30",
                          "E1 (2) 60", "SLIC 08", "SLIC 16", "SLIC 16 Long Loop", "SLIC 24", "TRUNK 08",
                          "TRUNK 12", "TRUNK 16", "TRUNK 16 Long Loop"));
  EXPECT_THAT(
      bench.Go("list cmbMask3\n"),
      ElementsAre("DISA / VM", "4 DIGITAL", "SLIC 8 (4)", "8 DIGITAL", "12 DIGITAL", "E & M", "E1", "SLIC 08",
                  "SLIC 16", "SLIC 16(L)", "SLIC 24", "TRUNK 08", "TRUNK 12", "TRUNK 16", "TRUNK 16(L)"));
}

std::string Insert(std::string_view card, std::string_view type) {
  return "focus cmbCard\npick " + std::string(card) + "\nfocus cmbType\npick " + std::string(type) +
         "\nclick cmbInsert\n";
}

/** Card, channel and type of the rows from `first` to `last`, a line each. */
std::vector<std::string> Rows(EditorBench& bench, int first, int last) {
  std::vector<std::string> rows;
  for (int row = first; row <= last; ++row) {
    const std::vector<std::string> cells = bench.Cells(row, 1, 3);
    rows.push_back(cells[0] + "/" + cells[1] + " " + cells[2]);
  }
  return rows;
}

TEST(PortInsert, TheMixedCardHasAGapAndIsOneStep) {
  EditorBench bench;
  EXPECT_THAT(bench.Run("frmPortSys_Def", Insert("2", "4 DIGITAL 8 Ext")), IsEmpty());
  EXPECT_THAT(Rows(bench, 4, 6), ElementsAre("2/4 4 DIGITAL", "2/9 SLIC 8 (4)", "2/10 SLIC 8 (4)"));
  EXPECT_EQ(bench.editor->table()->rows(), 12);
  bench.Go("click mnu_undo\n");
  EXPECT_EQ(bench.editor->table()->rows(), 0);
}

TEST(PortInsert, ACardIsReplacedInItsPlace) {
  EditorBench bench;
  const std::string two = Insert("1", "8 DIGITAL") + Insert("2", "SLIC 16");
  EXPECT_THAT(bench.Run("frmPortSys_Def", two + "answer No\n" + Insert("1", "SLIC 16")),
              ElementsAre("ask: Card \"1\" already inserted. Do you want to replace? -> No"));
  EXPECT_EQ(bench.editor->table()->rows(), 24);
  bench.Go(Insert("1", "SLIC 16"));  // eight find their place, eight go behind the last row
  EXPECT_THAT(Rows(bench, 8, 9), ElementsAre("1/8 SLIC 16", "2/1 SLIC 16"));
  EXPECT_THAT(Rows(bench, 24, 25), ElementsAre("2/16 SLIC 16", "1/9 SLIC 16"));
  EXPECT_EQ(bench.editor->table()->rows(), 32);
  bench.Go(Insert("2", "8 DIGITAL"));  // the second half of the old card is empty
  EXPECT_THAT(Rows(bench, 16, 18), ElementsAre("2/8 8 DIGITAL", "/ ", "/ "));
  bench.Go(Insert("3", "12 DIGITAL"));  // its last ports go around the rows of card 1
  EXPECT_THAT(Rows(bench, 24, 25), ElementsAre("3/8 12 DIGITAL", "1/9 SLIC 16"));
  EXPECT_THAT(Rows(bench, 33, 36),
              ElementsAre("3/9 12 DIGITAL", "3/10 12 DIGITAL", "3/11 12 DIGITAL", "3/12 12 DIGITAL"));
}

TEST(PortInsert, ACardThatHasNoRoomChangesNothing) {
  std::string project = "[Port_Def]\nNow=440\n";
  for (int row = 1; row <= 440; ++row) project += Padded(row, 3) + "=16|" + std::to_string(row) + "\n";
  EditorBench bench(project);
  EXPECT_THAT(bench.Run("frmPortSys_Def", Insert("1", "E1 (2) 60")),
              ElementsAre("box: Cannot insert more card"));
  EXPECT_EQ(bench.editor->table()->rows(), 440);
  EXPECT_THAT(bench.Go("go 440 Card\npress Delete\n" + Insert("1", "E1 (2) 60")), IsEmpty());
  EXPECT_THAT(Rows(bench, 439, 440), ElementsAre("16/439 ", "1/1 E1"));
  EXPECT_THAT(Rows(bench, 499, 500), ElementsAre("1/60 E1", "/ "));
}

TEST(PortDefine, WhatUsesAPortIsListed) {
  EditorBench bench(EveryReference());
  std::vector<std::string> uses;
  for (const Found& use : UsedBy(*bench.store.Snapshot(EditorBench::kProject), port_def::kTable, 5))
    uses.push_back(use.row + ", " + use.field);
  EXPECT_THAT(uses, ElementsAre("PABX Mode, Extention Number", "Number 001 (201), Value",
                                "Boss and Secretary 01, BOSS"));
}

}  // namespace
}  // namespace tarvok::test
