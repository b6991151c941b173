#include "tests/editors/ports/every_reference.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Profiles, ControlsBecomeFields) {
  EditorBench bench("[COR_Group]\n02=01\n12=03|04\n");
  EXPECT_THAT(
      bench.Run("frmPortConfig_Def", "list cmbClass_d\nlist cmbTransfer\nvalue txtSetCO\nvalue cmbOE\n"),
      ElementsAre("", "COR Group 02", "COR Group 12", "ON", "OFF", "0", "None"));
  EXPECT_THAT(
      bench.Go(
          "click lsPortConfig(4)\nfocus cmbClass_d\npick COR Group 02\nfocus cmbClass_n\n"
          "pick COR Group 12\nfocus cmbTransfer\npick ON\nfocus cmbCID\npick MDMF\nfocus cmbConnect\n"
          "pick 20 PPS\nfocus cmbMusic\npick VM on CO\nfocus txtSetCO\ntype 02567\nfocus txtSetTOIn\n"
          "type 255\nfocus cmbOE\npick 9\nfocus txtHotOper\ntype 1234567890123*\nset chkHook 1\n"
          "set optReverse(2) 1\nset optReverse(3) 1\nset chkFAX 1\nset chkNotPrint 1\nset chkLinkTrunk 1\n"
          "focus cmbTrunkType\npick 30\nset chkWarning 1\nfocus txtTOhangon\ntype 300\n"
          "focus cmbHoldCOR\npick COR Group 12\nfocus cmbTransTO\npick 16 Rings Disc\n"
          "click lsPortConfig(6)\nfocus cmbTransTO\npick Default\nclick lsPortConfig(7)\n"
          "focus cmbTransTO\npick 16\nclick cmdOK\n"),
      IsEmpty());
  bench.ExpectKeys(
      "[PortConfig]\n-01\n05=02|12|1|2|3|4|25|255|9|123456789012|1|3|1|1|30|1|30|12|255\n"
      "07=F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|8\n08=F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|16\n");
}

TEST(Profiles, OldValuesAreShownAndStoredAsTheControlsSay) {
  EditorBench bench(
      "[PortConfig]\n01=3|x|2|3|4|9|300|0|F|12|0|7|0|0|31|0|0|F|0\n02=F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|8\n"
      "03=F|F|1|0|0|0|0|0|0|F|0|1|0|0|30|0|0|F|256\n04=5|F|F|1\n05=F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|0\n"
      "[COR_Group]\n03=01\n");
  EXPECT_THAT(
      bench.Run("frmPortConfig_Def",
                "value cmbClass_d\nvalue cmbClass_n\nvalue cmbTransfer\nvalue cmbOE\nvalue chkLinkTrunk\n"
                "value cmbTransTO\nvalue optReverse(0)\nclick lsPortConfig(1)\nvalue cmbTransTO\n"
                "click lsPortConfig(2)\nvalue cmbTransTO\nvalue chkLinkTrunk\nvalue cmbTrunkType\n"
                "value optReverse(1)\nset chkLinkTrunk 0\nclick cmdOK\n"),
      ElementsAre("COR Group 03", "", "OFF", "None", "0", "", "1", "Default", "16 Rings Disc", "1", "30",
                  "1"));
  bench.ExpectKeys(
      "[PortConfig]\n01=03|F|0|0|0|0|300|0|0|12|0|0|0|0|0|0|0|F|0\n"
      "03=F|F|1|0|0|0|0|0|0|F|0|1|0|0|0|0|0|F|255\n04=05|F|F|1|0|0|0|0|0|F|0|0|0|0|0|0|0|F|F\n-05\n");
}

}  // namespace
}  // namespace tarvok::test
