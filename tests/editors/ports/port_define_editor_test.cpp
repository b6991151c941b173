#include "store/number_text.h"
#include "tests/editors/ports/every_reference.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(PortDefineEditor, SavingSortsAndUpdatesEveryReference) {
  ExpectEdit(
      "frmPortSys_Def", EveryReference(),
      "click mnu_Sort_ZA\ngo 1 PSW\ntype 1\npress Backspace\nclick cmdOK\n", "",
      "[Port_Def]\n001=1|1|1|F*6|77|F*5|001|F*7\n002=1|2|1|F*12|002|F*7\n003=2|1|2|F*20\n005=3|2|6|F*20\n"
      "Now=5\n[Assign]\n001=201|0|001|2|002\n002=200|0|002|F|F\n003=300|1|1|F|001\n[BOSS]\n01=001|002\n"
      "02=002|F\n[E1Map]\n01=004|005|0\n[Group_Out]\n01=003|004\n02=005\nNow=3\n"
      "[SystemConfig]\nPbx=0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|001|0|0|0\n[HuntGroup]\n01=001|002\n"
      "[Incoming_List]\n01=Night|001|1000|002|20\n[DIDRedirect]\n001=1|0|9|0|001\n"
      "[Account]\n001=11|22|004|F|F|F\n002=12|22|005|F|F|F\n");
}

TEST(PortDefineEditor, ClearsReferencesToRemovedPorts) {
  // A number is removed with its port unless the row still shows it.
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"select 4 1 5 3\ncut\nselect 1 1 1 3\ncut\n",
       "[Assign]\n001=201|0|F|2|002\n002=200|0|F|F|F\n[HuntGroup]\n01=001|002\n",
       "3 rows that you remove are used in 8"},
      {"select 4 1 5 11\ncut\nselect 1 1 1 3\ncut\n",
       "[Assign]\n001=F|F|F|F|F\n002=F|F|F|F|F\n[HuntGroup]\n01=\n02=\nNow=0\n",
       "5 rows that you remove are used in 14"},
      {"go 5 1\nclick cmdDelRow\ngo 4 1\nclick cmdDelRow\ngo 1 1\nclick cmdDelRow\n",
       "[Assign]\n001=F|F|F|F|F\n002=F|F|F|F|F\n[HuntGroup]\n01=\n02=\nNow=0\n",
       "5 rows that you remove are used in 14"}};
  for (const auto& [how, numbers, used] : cases) {
    SCOPED_TRACE(how);
    ExpectEdit("frmPortSys_Def", EveryReference(), std::string(how) + "click cmdOK\n", AskedToClear(used),
               std::string("[BOSS]\n01=F|F\n[Group_Out]\n01=001\nNow=2\n[E1Map]\n01=F|002|0\n"
                           "[SystemConfig]\nPbx=0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|F|0|0|0\n") +
                   numbers);
  }
}

TEST(PortDefineEditor, AReplacedCardKeepsTheNumbersOfItsPorts) {
  std::string project = "[Port_Def]\nNow=17\n";
  std::string numbers = "[Assign]\nNow=17\n";
  for (int row = 1; row <= 16; ++row) {
    project += Padded(row, 3) + "=" + Port("1|" + std::to_string(row) + "|1", Padded(row, 3)) + "\n";
    numbers += Padded(row, 3) + "=" + std::to_string(100 + row) + "|0|" + Padded(row, 3) + "|F|F\n";
  }
  project += "017=" + Port("2|1|1", "017") + "\n";
  numbers += "017=300|0|017|F|F\n";
  ExpectEdit("frmPortSys_Def", project + numbers + "[HuntGroup]\nNow=3\n01=001|016|017\n",
             "focus cmbCard\npick 1\nfocus cmbType\npick 8 DIGITAL\nanswer Yes\nclick cmbInsert\n"
             "go 2 Number\ntype 109\nclick cmdOK\n",
             "ask: Card \"1\" already inserted. Do you want to replace? -> Yes\n" +
                 AskedToClear("2 rows that you remove are used in 2"),
             "[Port_Def]\n001=1|1|3|F*20\n002=1|2|3|F*12|002|F*7\n009=2|1|1|F*12|017|F*7\n-010\n"
             "[Assign]\n001=F|F|F|F|F\n002=109|0|002|F|F\n009=F|F|F|F|F\n016=F|F|F|F|F\n017=300|0|009|F|F\n"
             "[HuntGroup]\n01=017\nNow=1\n");
}

TEST(PortDefineEditor, AnIncompletePortKeepsItsNumberAndGroup) {
  ExpectEdit(
      "frmPortSys_Def",
      "[Port_Def]\n001=3|1|2|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F\nNow=1\n[Group_Out]\n03=001\nNow=1\n["
      "BOSS]\n01=001|F\n",
      "go 1 Channel\npress Delete\ngo 1 Number\ntype 300\nclick cmdOK\n",
      AskedToClear("Port 001 (card 3, channel 1) is used in 1"),
      "[Port_Def]\n001=3|F|2|F*12|001|F*7\n[Assign]\n001=300|0|001|F|F\n[Group_Out]\n03=001\nNow=1\n"
      "[BOSS]\n01=F|F\n");
}

TEST(PortDefineEditor, AGroupKeepsOnlyLines) {
  ExpectEdit("frmPortSys_Def", EveryReference(), "go 2 Type\npick SLIC 16\nclick cmdOK\n", "",
             "[Group_Out]\n01=003|004\n02=\nNow=2\n");
}

TEST(PortDefineEditor, LinksNumbersToTheirPorts) {
  struct Case {
    const char* what;
    const char* script;
    const char* keys;
    bool removes_a_number = false;
  };
  const Case cases[] = {
      {"a changed number keeps its row", "go 5 Number\npress Delete\ntype 250\n",
       "[Assign]\n001=250|0|001|2|002\n[Port_Def]\n001=1|1|1|F*6|77|F*5|001|F*7\n"},
      {"a removed number loses all references", "go 4 Number\npress Delete\n",
       "[Assign]\n002=F|F|F|F|F\n[Port_Def]\n002=1|2|1|F*20\n[HuntGroup]\n01=001\nNow=1\n"
       "[Incoming_List]\n01=Night|001|1000|F|20\n",
       true},
      {"a number that moves to another port keeps its row",
       "go 4 Number\npress Delete\ngo 3 Number\ntype 200\n",
       "[Assign]\n002=200|0|003|F|F\n[Port_Def]\n002=1|2|1|F*20\n003=2|1|2|F*12|002|F*7\n[HuntGroup]\n02="
       "002\n"},
      {"two ports swap their numbers",
       "go 4 Number\npress Delete\ntype 201\ngo 5 Number\npress Delete\ntype 200\n",
       "[Assign]\n001=200|0|001|2|002\n002=201|0|002|F|F\n"},
      {"a new number takes the first free row, even above the rows in use", "go 3 Number\ntype 1234567\n",
       "[Assign]\n004=123456|0|003|F|F\nNow=4\n[Port_Def]\n003=2|1|2|F*12|004|F*7\n"},
      {"a new number does not inherit references to the old one",
       "go 4 Number\npress Delete\ngo 3 Number\ntype 999\n",
       "[Assign]\n002=999|0|003|F|F\n[HuntGroup]\n02=\n", true},
      {"a new number leaves its row to the port that takes over the old number",
       "go 5 Number\npress Delete\ntype 999\ngo 4 Number\npress Delete\ngo 3 Number\ntype 200\n",
       "[Assign]\n001=999|0|001|2|002\n002=200|0|003|F|F\n[HuntGroup]\n01=001|002\n"},
      {"the number of a group does not change", "go 3 Number\ntype 300\n",
       "[Assign]\n003=300|1|1|F|001\n[Port_Def]\n003=2|1|2|F*12|003|F*7\n"},
      {"the number of a group replaces the port's own, which becomes unreachable",
       "go 4 Number\npress Delete\ntype 300\n",
       "[Assign]\n002=F|F|F|F|F\n003=300|1|1|F|001\n[Port_Def]\n002=1|2|1|F*12|003|F*7\n[HuntGroup]\n"
       "01=001\n02=\nNow=1\n",
       true},
  };
  for (const auto& [what, script, keys, removes_a_number] : cases) {
    SCOPED_TRACE(what);
    ExpectEdit("frmPortSys_Def", EveryReference(), std::string(script) + "click cmdOK\n",
               removes_a_number ? AskedToClear("Number 002 (200) is used in 4") : "", keys);
  }
}

TEST(PortDefineEditor, TheNumberOfACallGroupIsNotShared) {
  ExpectEdit("frmPortSys_Def",
             "[Port_Def]\nNow=3\n001=" + Port("1|1|1") + "\n002=" + Port("1|2|1", "001") +
                 "\n003=" + Port("1|3|1") + "\n[Assign]\nNow=2\n001=500|2|01|F|F\n002=600|7|1|F|F\n",
             "go 1 Number\ntype 500\ngo 3 Number\ntype 600\nclick cmdOK\n", "",
             "[Port_Def]\n001=1|1|1|F*12|003|F*7\n002=1|2|1|F*12|001|F*7\n003=1|3|1|F*12|002|F*7\n"
             "[Assign]\n001=500|2|01|F|F\n002=600|7|1|F|F\n003=500|0|001|F|F\nNow=3\n");
}

TEST(PortDefineEditor, SavingKeepsWhatWasNotEdited) {
  // Two groups with one number, a list without a name, and one that does not exist.
  ExpectEdit("frmPortSys_Def",
             "[Port_Def]\nNow=3\n001=1|1|1|F|F|F|001|002\n002=1|2|1|F|F|F|3|051|F|F|F|F|F|F|F|032\n"
             "003=1|3|1|F|F|F|001|003|F|F|F|F|F|F|F|033\n[Assign]\nNow=33\n031=500|1|1|F|F\n"
             "032=500|4|2|F|F\n033=500|F|F|F|F\n[Incoming_List]\n01=Day|F|F|F|F\n02=F|001|F|F|F\n",
             "show\ngo 1 PSW\ntype 9\ngo 3 7\npress Delete\ngo 3 8\npress Delete\nclick cmdOK\n",
             "\tCard\tChannel\tType\tConfig\tTenan\tPickup Group\tIncoming D\tIncoming N\tNumber\tPSW\t"
             "Expand T\n1\t1\t1\tSLIC 16\t\t\t\tDay\tList 2\t\t\t\n2\t1\t2\tSLIC 16\t\t\t\tList "
             "3\t\t500\t\t\n3\t1\t3\tSLIC 16\t\t\t\tDay\tList 3\t500\t\t",
             "[Port_Def]\n001=1|1|1|F|F|F|001|002|F*8|9|F*6\n002=1|2|1|F|F|F|003|051|F*7|032|F*7\n"
             "003=1|3|1|F|F|F|F|F*8|033|F*7\n[Assign]\n033=500|0|003|F|F\n");
}

TEST(PortDefineEditor, StaysOpenIfANumberFindsNoRow) {
  std::string project = "[Port_Def]\nNow=1\n001=" + Port("1|1|1") + "\n[Assign]\nNow=500\n";
  for (int row = 1; row <= 500; ++row) project += Padded(row, 3) + "=5|1|1\n";
  EditorBench bench(project);
  const std::string before = bench.Bytes();
  EXPECT_THAT(bench.Run("frmPortSys_Def", "go 1 Number\ntype 77\nclick cmdOK\n"),
              ElementsAre("box: Over limit data you cannot add. "));
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_FALSE(bench.editor->closed());
}

TEST(PortDefineEditor, DropsKeysBeyondTheLimit) {
  ExpectEdit("frmPortSys_Def", "[Port_Def]\nNow=2\n",
             "go 1 Card\ntype 1a23\ngo 1 Channel\ntype 1\ngo 1 Config\ntype 0210\ngo 1 Tenan\ntype 035\n"
             "go 1 \"Pickup Group\"\ntype 991\ngo 1 PSW\ntype 12345\ngo 1 \"Expand T\"\npick USE\n"
             "go 2 1\ntype 13\ngo 2 2\ntype 2\ngo 2 Config\ntype 30\ngo 2 Tenan\ntype 33\nclick cmdOK\n",
             "",
             "[Port_Def]\n001=12|1|F|20|3|99|F|F|F|F|F|F|F|F|F|F|1234|F|F|F|F|F|1\n"
             "002=13|2|F|3|3|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F\n");
}

TEST(PortDefineEditor, ClampsValuesOfOldAndBrokenRows) {
  ExpectEdit(
      "frmPortSys_Def",
      "[Port_Def]\nNow=3\n001=1|5|4|33|44|100|002|051|1|1|2|3|4|5|99\n002=1|3|4|F|F|F|F|F|F|F|F|F|F|F|F|700\n"
      "003=F|F|F|5\n004=1|6|15\n[Incoming_List]\n01=Day\n02=Day\n",
      "show\ngo 1 PSW\ntype 1\nclick cmdOK\n",
      "\tCard\tChannel\tType\tConfig\tTenan\tPickup Group\tIncoming D\tIncoming N\tNumber\t"
      "PSW\tExpand T\n1\t1\t5\tSLIC 8 (4)\t33\t44\t100\tDay\t\t\t\t\n2\t1\t3\t4 "
      "DIGITAL\t\t\t\t\t\t\t\t\n3\t\t\t\t5\t\t\t\t\t\t\t\n4\t1\t6\t\t\t\t\t\t\t\t\t",
      "[Port_Def]\n001=1|3|4|F|F|F|F|F|F|F|F|F|F|F|F|700|F|F|F|F|F|F|F\n"
      "002=1|5|4|20|32|99|002|051|1|1|2|3|4|5|99|F|1|F|F|F|F|F|F\n"
      "003=1|6|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F\n-004\n");
}

TEST(CardInsert, ListsAreInOrder) {
  ExpectEdit(
      "frmPortSys_Def", "", "list cmbType\nlist cmbMask3\n",
      "4 DIGITAL 8 Ext\n8 DIGITAL\n12 DIGITAL\nDISA / VM\nE & M\nE1 (1) 30\nE1 (2) 60\nSLIC 08\nSLIC 16\n"
      "SLIC 16 Long Loop\nSLIC 24\nTRUNK 08\nTRUNK 12\nTRUNK 16\nTRUNK 16 Long Loop\n"
      "DISA / VM\n4 DIGITAL\nSLIC 8 (4)\n8 DIGITAL\n12 DIGITAL\nE & M\nE1\nSLIC 08\nSLIC 16\nSLIC 16(L)\n"
      "SLIC 24\nTRUNK 08\nTRUNK 12\nTRUNK 16\nTRUNK 16(L)",
      "");
}

std::string Insert(std::string_view card, std::string_view type) {
  return "focus cmbCard\npick " + std::string(card) + "\nfocus cmbType\npick " + std::string(type) +
         "\nclick cmbInsert\n";
}

/** Card, channel and type of the rows from `first` to `last`. */
std::string Rows(EditorBench& bench, int first, int last) {
  std::string rows;
  for (int row = first; row <= last; ++row) {
    const std::vector<std::string> cells = bench.Cells(row, 1, 3);
    rows += (rows.empty() ? "" : ", ") + cells[0] + "/" + cells[1] + " " + cells[2];
  }
  return rows;
}

TEST(CardInsert, TheMixedCardHasAGapAndIsOneStep) {
  EditorBench bench;
  EXPECT_THAT(bench.Run("frmPortSys_Def", Insert("2", "4 DIGITAL 8 Ext")), IsEmpty());
  EXPECT_EQ(Rows(bench, 4, 6), "2/4 4 DIGITAL, 2/9 SLIC 8 (4), 2/10 SLIC 8 (4)");
  EXPECT_EQ(bench.editor->table()->rows(), 12);
  bench.Go("click mnu_undo\n");
  EXPECT_EQ(bench.editor->table()->rows(), 0);
}

TEST(CardInsert, ReplacesACardInPlace) {
  EditorBench bench;
  const std::string two = Insert("1", "8 DIGITAL") + Insert("2", "SLIC 16");
  EXPECT_THAT(bench.Run("frmPortSys_Def", two + "answer No\n" + Insert("1", "SLIC 16")),
              ElementsAre("ask: Card \"1\" already inserted. Do you want to replace? -> No"));
  EXPECT_EQ(bench.editor->table()->rows(), 24);
  bench.Go(Insert("1", "SLIC 16"));  // eight ports go into the old rows, eight after the last row
  EXPECT_EQ(bench.editor->table()->current_row(), 1) << "on the first port of the card";
  EXPECT_EQ(Rows(bench, 8, 9), "1/8 SLIC 16, 2/1 SLIC 16");
  EXPECT_EQ(Rows(bench, 24, 25), "2/16 SLIC 16, 1/9 SLIC 16");
  EXPECT_EQ(bench.editor->table()->rows(), 32);
  bench.Go(Insert("2", "8 DIGITAL"));  // the second half of the old card becomes empty
  EXPECT_EQ(Rows(bench, 16, 18), "2/8 8 DIGITAL, / , / ");
  bench.Go(Insert("3", "12 DIGITAL"));  // its last ports go after the rows of card 1
  EXPECT_EQ(bench.editor->table()->current_row(), 17);
  EXPECT_EQ(Rows(bench, 24, 25), "3/8 12 DIGITAL, 1/9 SLIC 16");
  EXPECT_EQ(Rows(bench, 33, 36), "3/9 12 DIGITAL, 3/10 12 DIGITAL, 3/11 12 DIGITAL, 3/12 12 DIGITAL");
}

TEST(CardInsert, ChangesNothingWithoutRoom) {
  std::string project = "[Port_Def]\nNow=440\n";
  for (int row = 1; row <= 440; ++row) project += Padded(row, 3) + "=16|" + std::to_string(row) + "\n";
  EditorBench bench(project);
  EXPECT_THAT(bench.Run("frmPortSys_Def", Insert("1", "E1 (2) 60")),
              ElementsAre("box: Cannot insert more card"));
  EXPECT_EQ(bench.editor->table()->rows(), 440);
  EXPECT_THAT(bench.Go("go 440 Card\npress Delete\n" + Insert("1", "E1 (2) 60")), IsEmpty());
  EXPECT_EQ(Rows(bench, 439, 440), "16/439 , 1/1 E1");
  EXPECT_EQ(Rows(bench, 499, 500), "1/60 E1, / ");
}

}  // namespace
}  // namespace tarvok::test
