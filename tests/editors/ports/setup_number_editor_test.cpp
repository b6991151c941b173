#include "editors/used_by.h"
#include "sections/ports/port_def.h"
#include "tests/editors/ports/every_reference.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(SetupNumberEditor, SavingSortsAndUpdatesEveryReference) {
  ExpectEdit(
      "frmExtension", EveryReference(), "go 1 Company\npress Backspace\nclick cmdOK\n", "",
      "[Assign]\n001=200|0|004|F|F\n002=201|0|005|F|001\n003=300|1|1|F|002\n-004\nNow=4\n[Name]\nNow=2\n"
      "001=Bar\n002=Desk\n[Port_Def]\n004=1|2|1|F*12|001|F*7\n005=1|1|1|F*6|77|F*5|002|F*7\n[HuntGroup]\n"
      "01=002|001\n02=001\nNow=3\n[Account]\n001=11|22|002|F|F|F\n002=12|22|001|F|F|F\n[Incoming_List]\n"
      "01=Night|002|1000|001|20\n[DIDRedirect]\n001=1|0|9|0|002\n002=1|5|6|1|01\n[BOSS]\n01=005|004\n");
}

TEST(SetupNumberEditor, ClearsReferencesToDeletedNumbers) {
  for (const char* how : {"go 2 1\nclick cmdDelRow\n", "select 2 1 2 5\ncut\n"}) {
    ExpectEdit("frmExtension", EveryReference(), std::string(how) + "click cmdOK\n",
               AskedToClear("Number 002 (200) is used in 5"),
               "[Assign]\n001=201|0|005|2|001\n002=300|1|1|F|002\n-003\n[Port_Def]\n004=1|2|1|F*20\n"
               "[HuntGroup]\n01=001\n02=\nNow=1\n[Account]\n002=12|22|F|F|F|F\n"
               "[Incoming_List]\n01=Night|001|1000|F|20\n[BOSS]\n01=005|F\n");
  }
}

TEST(SetupNumberEditor, StaysOpenIfNothingMayBeCleared) {
  EditorBench bench(EveryReference());
  const std::string before = bench.Bytes();
  bench.Run("frmExtension", "go 2 1\nclick cmdDelRow\nanswer No\nclick cmdOK\n");
  EXPECT_FALSE(bench.editor->closed());
  EXPECT_EQ(bench.Bytes(), before);
}

TEST(SetupNumberEditor, ASecretaryFollowsItsNumberToAnotherPort) {
  ExpectEdit("frmExtension", EveryReference(), "go 2 Value\npick 2/1\nclick cmdOK\n", "",
             "[Assign]\n001=200|0|003|F|F\n[Port_Def]\n003=2|1|2|F*12|001|F*7\n004=1|2|1|F*20\n"
             "[BOSS]\n01=005|003\n02=004|F\n");
}

TEST(SetupNumberEditor, ShowsAndAsksAboutRepeats) {
  EditorBench bench(EveryReference());
  const std::string before = bench.Bytes();
  EXPECT_THAT(
      bench.Run("frmExtension",
                "click cmdCheck\nvalue lblRepeat\nclick cmdChk_port\nvalue lblRepeat\n"
                "go 2 Number\npress Backspace\ntype 1\nclick cmdCheck\nvalue lblRepeat\nlist lsRepeat\n"
                "answer No\nclick cmdOK\ngo 2 Value\npick 1/1\nanswer No\nclick cmdOK\nlist lsRepeat\n"
                "go 2 Number\ntype 9\nanswer No\nclick cmdCancel\n"),
      ElementsAre("No repeat number", "No repeat port", "Show repeat number :", "201",
                  "ask: There are repeat numbers. Do you still want to save? -> No",
                  "ask: There are repeat numbers and ports. Do you still want to save? -> No", "201",
                  StartsWith("ask: Data was change")));
  EXPECT_EQ(bench.Bytes(), before);
  ExpectEdit("frmExtension", before, "go 2 Value\npick 1/1\nclick cmdOK\n",
             "ask: There are repeat ports. Do you still want to save? -> Yes",
             "[Assign]\n001=200|0|005|F|F\n");
}

TEST(SetupNumberEditor, TheValueDependsOnTheType) {
  ExpectEdit("frmExtension", "[Port_Def]\nNow=1\n001=" + Port("7|12|1") + "\n[Assign]\nNow=4\n",
             "go 1 Number\ntype 1234567\ngo 1 Type\npick Port\ngo 1 Value\ntype 3\npick 7/12\ngo 2 1\n"
             "type 20\ngo 2 2\npick Call Group All\ngo 2 3\npick 07\ngo 3 1\ntype 30\ngo 3 2\n"
             "pick Boss Number\ngo 3 3\ntype 123x\ngo 4 1\ntype 40\ngo 4 2\npick Hunt ACD\ngo 4 3\npick 20\n"
             "go 4 Company\ntype 5034\ngo 4 Name\ntype An |'old' name of twenty\nclick cmdOK\n",
             "",
             "[Assign]\n001=20|3|07|F|F\n002=30|7|12|F|F\n003=40|6|20|3|001\n004=123456|0|001|F|F\n"
             "[Name]\n001=An |'old' name\n[Port_Def]\n001=7|12|1|F*12|004|F*7\n");
}

TEST(SetupNumberEditor, ANewTypeClearsAnInvalidValue) {
  ExpectEdit(
      "frmExtension", EveryReference(),
      "go 1 Type\npick Call Group\ngo 3 Type\npick Hunt Circular\ngo 2 Type\npick Boss Number\npick Port\n"
      "click cmdOK\n",
      "", "[Assign]\n001=200|0|F|F|F\n002=201|2|F|2|001\n003=300|4|1|F|002\n");
}

TEST(SetupNumberEditor, ShowsOldAndBrokenProjectsUnchanged) {
  ExpectEdit(
      "frmExtension",
      "[Assign]\nNow=2\n001=100|0|501|7|009\n002=101|9|f\n003=102|0|004|x|001\n500=\n[Name]\nNow=1\n001=A\n",
      "show\ngo 3 Number\ntype 0\nclick cmdOK\n",
      "\tNumber\tType\tValue\tCompany\tName\n1\t100\tPort\t\t7\t\n2\t101\t\t\t\t\n3\t102\tPort\t\tx\tA",
      "[Assign]\n001=100|0|501|4|F\n002=101|F|F|F|F\n003=1020|0|004|x|001\nNow=3\n");
}

TEST(SetupNumberEditor, SavingKeepsWhatWasNotEdited) {
  // Ports that are incomplete or missing have no text, but a number may refer to them. A row without a number can't be
  // referred to.
  const std::string cleared = AskedToClear("Number 002 is used in 1");
  const std::string project = "[Port_Def]\nNow=2\n001=" + Port("1|F|1") + "\n002=" + Port("1|2|1", "002") +
                              "\n[Assign]\nNow=4\n001=100|0|001|F|F\n002=F|0|002|1|F\n003=300|2|01|F|F\n"
                              "004=400|0|003|F|F\n[BOSS]\n01=001|002\n";
  ExpectEdit("frmExtension", project,
             "go 1 Company\ntype 2\ngo 3 Type\npick Port\ngo 3 Name\npaste A|B\nclick cmdOK\n", cleared,
             "[Assign]\n001=100|0|001|2|F\n002=300|0|F|F|001\n003=400|0|003|F|F\n004=F|0|002|1|F\n"
             "[Name]\n001=A|B\n[BOSS]\n01=001|002\n");
  ExpectEdit("frmExtension", project, "go 1 Type\npick Call Group\nclick cmdOK\n", cleared,
             "[Assign]\n001=100|2|F|F|F\n");
  ExpectEdit("frmExtension", project,
             "go 1 Type\npick Call Group\npick Port\ngo 4 Value\npress Delete\nclick cmdOK\n", cleared,
             "[Assign]\n001=100|0|F|F|F\n003=400|0|F|F|F\n");
}

TEST(SetupNumberEditor, AddsRowsUpToTheLimit) {
  ExpectEdit("frmExtension", "[Assign]\nNow=499\n",
             "click mnu_AddRow\ntype 5\nclick mnu_AddRow\nclick cmdOK\n",
             "box: Over limit data you cannot add. ", "[Assign]\n001=5|F|F|F|F\nNow=500\n");
}

TEST(UsedBy, ListsReferencesToANumberAndAPort) {
  EditorBench bench(EveryReference());
  bench.Open("frmExtension");
  const auto project = bench.store.Snapshot(EditorBench::kProject);
  const auto lines_of = [](const std::vector<Found>& uses) {
    std::vector<std::string> lines;
    for (const Found& use : uses) lines.push_back(use.row + ", " + use.field + ": " + use.value);
    return lines;
  };
  EXPECT_THAT(lines_of(UsedBy(*project, dynamic_cast<FieldTableEditor&>(*bench.editor), 2)),
              ElementsAre("Port 004 (card 1, channel 2), Number: 200", "Hunt Group 01, Member 2: 200",
                          "Hunt Group 02, Member 1: 200", "Account 002 (12), Number: 200",
                          "Incoming List 01 (Night), Num3: 200"));
  EXPECT_THAT(
      lines_of(UsedBy(*project, port_def::kTable, 5)),
      ElementsAre(StartsWith("PABX Mode, Extention Number: "), StartsWith("Number 001 (201), Value: "),
                  StartsWith("Boss and Secretary 01, BOSS: ")));
}

}  // namespace
}  // namespace tarvok::test
