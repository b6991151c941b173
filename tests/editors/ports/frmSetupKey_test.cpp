#include "tests/editors/ports/every_reference.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Keys, TheDialogWritesTheFieldOfItsOption) {
  const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
      {"telephone number", "lblNum(1)", "F", "type *12#x3", "TE*12#3"},
      {"extension", "lblNum(1)", "TE5", "set Option1(2) 1\ntype 6*", "EX56"},
      {"a number that another option does not take", "lblNum(1)", "TE*5", "set Option1(2) 1\ntype 6", "EX6"},
      {"trunk alone", "lblNum(1)", "F", "set Option1(1) 1\ntype 1234567890123456789012",
       "TR12345678901234567890"},
      {"trunk and map digit", "lblNum(1)", "F",
       "set Option1(1) 1\ntype 123456\npress Tab\ntype 123456789012345\nfocus txtNumber\ntype 7",
       "TR123456,12345678901234"},
      {"no map digit behind a long trunk", "lblNum(1)", "F",
       "set Option1(1) 1\ntype 1234567\npress Tab\ntype 1", "TR1234567"},
      {"map digit taken away", "lblNum(1)", "TR0,40", "press Tab\npress Backspace\npress Backspace", "TR0"},
      {"group out", "lblNum(1)", "F", "set Option1(3) 1\npick Group Out 32\npress Tab\ntype 9", "GO32,9"},
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
    EXPECT_EQ(bench.state.DataChanged, std::string(before) != (*after == '\0' ? "F" : after));
  }
}

TEST(Keys, ALineStandsOnOneKeyOnly) {
  EditorBench bench("[Key]\n01=ML1|ML2|F|ML4|ML5|ML\n02=F\n");
  EXPECT_THAT(
      bench.Run(
          "frmSetupKey",
          "click lblNum(1)\nlist cmbMulti\nvalue cmbMulti\nclick cmdCancel\nclick lblNum(2)\n"
          "set Option1(4) 1\npick 3\nclick cmdOK\nclick lblNum(6)\nset Option1(4) 1\nlist cmbMulti\n"
          "click cmdOK\nvalue lblNum(6)\nclick lsGrp(1)\nclick lblNum(0)\nlist cmbMulti\nclick cmdCancel\n"),
      ElementsAre("2", "3", "2", "", "1", "2", "3", "4", "5"));
}

TEST(Keys, LayoutsAreWrittenWholeAndOldFormsKept) {
  EditorBench bench("[Key]\n01=C05|C7|Cx|EX1\n24=F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|EX9|EX10\n");
  EXPECT_THAT(
      bench.Run("frmSetupKey",
                "value lblNum(0)\nvalue lblNum(1)\nvalue lblNum(2)\nclick lsGrp(2)\nvalue lblNum(0)\n"
                "click lblDSS(0)\ntype 5\nclick cmdOK\nclick lsGrp(0)\nclick lblNum(0)\nvalue cmbGrpOut\n"
                "click cmdOK\nclick cmdOK\n"),
      ElementsAre("Grp Out 5", "Grp Out 7", "Cx", "", "Group Out 5"));
  bench.ExpectKeys("[Key]\n01=C05|C07|Cx|EX1|F*16\n02=F*20\n24=F*19|EX9|EX10\n[DSS]\n02=F*64\n03=TE5|F*63\n");
}

}  // namespace
}  // namespace tarvok::test
