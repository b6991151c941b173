// Accounts, bosses, call forward, voice mail and keys.

#include "tests/editors/ports/every_reference.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(AccountEditor, StoresWhatIsTypedAndPicked) {
  ExpectEdit("frmAccount", EveryReference(),
             "list cmbMask\ngo 3 Account\ntype 12345678\ngo 3 Password\ntype 99999\ngo 3 Number\npick 201\n"
             "go 3 Config\npick 20\ngo 3 Tenan\npick 32\ngo 3 6\ntype 7200x1\ngo 1 Number\npick\n"
             "go 2 1\nclick mnu_insert_row\nclick cmdOK\n",
             "200\n201",
             "[Account]\n001=11|22|F|F|F|F\n-002\n003=12|22|002|F|F|F\n004=123456|9999|001|20|32|7200\n");
}

TEST(AccountEditor, AsksAboutRepeatsAndKeepsOldRows) {
  // Two rows have the same number: a reference keeps the one that it had. A missing number is cleared.
  ExpectEdit(
      "frmAccount",
      "[Assign]\nNow=3\n001=5|0|001\n002=7|0|002\n003=7|0|003\n[Account]\n001=1|2|3|25|F|F\n002=1|2|9\n",
      "go 3 1\ntype 2\nclick cmdCheck\nvalue lblRepeat\nlist lsRepeat\nanswer No\nclick cmdOK\n"
      "go 2 1\ntype 1\nclick cmdCheck\nvalue lblRepeat\nclick cmdOK\n",
      "Show repeat number :\n1\nask: There are repeat Account. Do you still want to save? -> No\nNo repeat "
      "Account",
      "[Account]\n001=1|2|003|25|F|F\n002=11|2|F|F|F|F\n");
}

TEST(BossEditor, ShowsBossesByNumber) {
  ExpectEdit("frmBoss", EveryReference(),
             "go 1 1\ncopy\ngo 3 BOSS\ntype 200\ngo 3 SECRETARY\ntype 300\ngo 4 2\npick 201\ngo 1 2\npress "
             "Delete\nclick cmdOK\n",
             "", "[BOSS]\n01=005|F\n02=004|F\n03=004|F\n04=F|005\n20=F|F\n");
}

TEST(BossEditor, KeepsAPortWithoutANumberUntilItsCellIsEdited) {
  // Port 2 has no number, port 499 does not exist.
  const std::string project = "[Port_Def]\nNow=2\n001=" + Port("1|1|1", "001") + "\n002=" + Port("1|2|1") +
                              "\n[Assign]\nNow=1\n001=200|0|001\n[BOSS]\n01=001|002\n02=499|002\n";
  const std::tuple<const char*, const char*> cases[] = {
      {"go 1 1\npress Delete\n", "01=F|002\n02=499|002\n"},
      {"go 2 2\npress Delete\n", "01=001|002\n02=499|F\n"},
      {"go 2 2\ntype 2\npress Backspace\n", "01=001|002\n02=499|F\n"},
      {"go 2 2\npick 200\npick\n", "01=001|002\n02=499|F\n"},
      {"go 2 2\npick\n", "01=001|002\n02=499|F\n"},
      {"select 2 1 2 2\nclick mnu_cut\n", "01=001|002\n02=F|F\n"},
      {"go 2 2\ntype 2\npress Escape\ngo 1 1\npress Delete\n", "01=F|002\n02=499|002\n"},
      {"go 2 2\npress Delete\nclick mnu_undo\ngo 1 1\npress Delete\n", "01=F|002\n02=499|002\n"},
      {"go 2 2\npress Delete\nclick mnu_undo\nclick mnu_redo\n", "01=001|002\n02=499|F\n"},
      {"click cmdSort\nclick cmdSort\nselect 1 1 1 2\nclick mnu_copy\nclick mnu_paste\n", "01=001|002\n"},
  };
  for (const auto& [script, rows] : cases) {
    SCOPED_TRACE(script);
    ExpectEdit("frmBoss", project, std::string(script) + "click cmdOK\n", "", std::string("[BOSS]\n") + rows);
  }
}

TEST(CallForwardEditor, ShowsRowsWithoutGaps) {
  ExpectEdit("frmCallFW",
             "[Port_Def]\nNow=5\n001=1|1|1\n002=1|2|1|F|F|F|F|F|0|1|2|3|4|5|255|001|9|8|7|2|1|3|1\n005=" +
                 Port("2|1|1", "F", "77") + "\n[Assign]\nNow=1\n001=201|0|002\n",
             "show\ngo 1 Card\ntype 9\ngo 3 DND\npick DND\ngo 3 Disa\ntype 12345678901234\ngo 1 10\n"
             "type 0256\nclick cmdSort\nclick cmdSort\nclick cmdOK\n",
             "\tCard\tChannel\tNumber\tDND\tDisa\tCo\tExt\tBusy\tNoAns\tRing "
             "T.\n1\t1\t1\t\t\t\t\t\t\t\t\n2\t1\t2\t201\t\t1\t2\t3\t4\t5\t255\n3\t2\t1\t\t\t77\t\t\t\t\t",
             "[Port_Def]\n001=1|1|1|F|F|F|F|F|F|F|F|F|F|F|25|F|F|F|F|F|F|F|F\n"
             "002=1|2|1|F|F|F|F|F|F|1|2|3|4|5|254|001|9|8|7|2|1|3|1\n-003\n"
             "005=2|1|1|F|F|F|F|F|1|771234567890|F|F|F|F|F|F|F|F|F|F|F|F|F\n");
}

TEST(CallForwardEditor, IgnoresPortsAboveNow) {
  const std::string project = "[Port_Def]\nNow=1\n001=1|1|1\n002=1|2|1\n";
  for (const auto& [form, cell] :
       {std::pair("frmCallFW", "go 1 Disa"), std::pair("frmVMBox", "go 1 Group")}) {
    EditorBench bench(project);
    bench.Run(form, std::string(cell) + "\ntype 7\nclick cmdOK\n");
    EXPECT_EQ(bench.editor->table()->rows(), 1) << form;
    EXPECT_THAT(bench.Get("Port_Def", "001"), testing::HasSubstr("|7|")) << form;
    EXPECT_EQ(bench.Get("Port_Def", "002"), "1|2|1") << form;
  }
}

TEST(VoiceMailBoxEditor, WritesFieldsInTheirOwnOrder) {
  ExpectEdit(
      "frmVMBox",
      "[Port_Def]\nNow=3\n002=" + Port("1|2|1", "F", "77") +
          "\n003=1|3|1|F|F|F|F|F|1|F|F|F|F|F|F|F|F|0|5|1|0|0|F\n",
      "go 1 4\npick Use & Auto Record\ngo 1 Group\ntype 0255\ngo 1 Language\ntype 255\n"
      "go 1 \"Call Screen\"\npick USE\ngo 1 \"Personal Msg\"\npick No\ngo 2 8\npick 4 Rings\nclick cmdOK\n",
      "",
      "[Port_Def]\n002=1|2|1|F|F|F|F|F|F|77|F|F|F|F|F|F|F|25|255|0|1|3|F\n"
      "003=1|3|1|F|F|F|F|F|1|F|F|F|F|F|F|F|F|0|5|2|F|F|F\n");
}

TEST(SetupKeyEditor, TheDialogWritesTheFieldOfItsOption) {
  const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
      {"telephone number", "lblNum(1)", "F", "type *12#x3", "TE*12#3"},
      {"extension", "lblNum(1)", "TE5", "set Option1(2) 1\ntype 6*", "EX56"},
      {"a number that another option does not accept", "lblNum(1)", "TE*5", "set Option1(2) 1\ntype 6",
       "EX6"},
      {"trunk alone", "lblNum(1)", "F", "set Option1(1) 1\ntype 1234567890123456789012",
       "TR12345678901234567890"},
      {"trunk and map digit", "lblNum(1)", "F",
       "set Option1(1) 1\ntype 123456\npress Tab\ntype 123456789012345\nfocus txtNumber\ntype 7",
       "TR123456,12345678901234"},
      {"no map digit after a long trunk", "lblNum(1)", "F",
       "set Option1(1) 1\ntype 1234567\npress Tab\ntype 1", "TR1234567"},
      {"map digit removed", "lblNum(1)", "TR0,40", "press Tab\npress Backspace\npress Backspace", "TR0"},
      {"group out", "lblNum(1)", "F", "set Option1(3) 1\npick Group Out 32\npress Tab\ntype 9", "GO32,9"},
      {"a group out that is not offered", "lblNum(1)", "GO40,1", "press Tab\ntype 2", "GO40,12"},
      {"group out without a group", "lblNum(1)", "GO5", "pick", ""},
      {"multiline", "lblNum(1)", "F", "set Option1(4) 1\npick 5", "ML5"},
      {"an empty number clears the button", "lblNum(1)", "EX5", "press Backspace", ""},
      {"cancelled", "lblNum(1)", "EX5", "type 6\nclick cmdCancel", "EX5"},
      {"untouched", "lblNum(1)", "XY,,5", "", "XY,,5"},
      {"console telephone", "lblDSS(63)", "F", "type 12*#34567", "TE12*#34"},
      {"console trunk", "lblDSS(63)", "F", "set Option1(1) 1\ntype 12*34567", "TR123456"},
      {"console extension", "lblDSS(63)", "TE12", "set Option1(2) 1", "EX12"},
  };
  for (const auto& [what, label, before, script_in_dialog, after] : cases) {
    SCOPED_TRACE(what);
    std::string dss = "F";
    for (int i = 1; i < 63; ++i) dss += "|F";
    EditorBench bench("[Key]\n01=F|" + std::string(before) + "\n[DSS]\n01=" + dss + "|" + before + "\n");
    std::string script = std::string("click ") + label + "\n" + script_in_dialog + "\n";
    if (script.find("cmdCancel") == std::string::npos) script += "click cmdOK\n";
    EXPECT_THAT(bench.Run("frmSetupKey", script + "value " + label + "\n"), ElementsAre(after));
    EXPECT_FALSE(bench.editor->closed());
    EXPECT_EQ(bench.state.data_changed, std::string(before) != (*after == '\0' ? "F" : after));
  }
}

TEST(SetupKeyEditor, OffersALineForOneKeyOnly) {
  ExpectEdit(
      "frmSetupKey", "[Key]\n01=ML1|ML2|F|ML4|ML5|ML\n02=F\n",
      "click lblNum(1)\nlist cmbMulti\nvalue cmbMulti\nclick cmdCancel\nclick lblNum(2)\n"
      "set Option1(4) 1\npick 3\nclick cmdOK\nclick lblNum(6)\nset Option1(4) 1\nlist cmbMulti\n"
      "click cmdOK\nvalue lblNum(6)\nclick lsGrp(1)\nclick lblNum(0)\nlist cmbMulti\nclick cmdCancel\n",
      "2\n3\n2\n\n1\n2\n3\n4\n5", "");
}

TEST(SetupKeyEditor, WritesWholeLayoutsAndKeepsOldForms) {
  ExpectEdit("frmSetupKey", "[Key]\n01=C05|C7|Cx|EX1\n24=F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|EX9|EX10\n",
             "value lblNum(0)\nvalue lblNum(1)\nvalue lblNum(2)\nclick lsGrp(2)\nvalue lblNum(0)\n"
             "click lblDSS(0)\ntype 5\nclick cmdOK\nclick lsGrp(0)\nclick lblNum(0)\nvalue cmbGrpOut\n"
             "click cmdOK\nclick cmdOK\n",
             "Grp Out 5\nGrp Out 7\nCx\n\nGroup Out 5",
             "[Key]\n01=C05|C07|Cx|EX1|F*16\n02=F*20\n24=F*19|EX9|EX10\n[DSS]\n02=F*64\n03=TE5|F*63\n");
}

}  // namespace
}  // namespace tarvok::test
