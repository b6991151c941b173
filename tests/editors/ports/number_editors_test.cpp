// Tables of numbers, hunt groups and port profiles.

#include "tests/editors/editor_bench.h"
#include "tests/editors/ports/every_reference.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(NumberEditors, ProfilesFollowASortOfLinkTrunks) {
  ExpectEdit("frmLinkTrunk",
             "[LinkTrunk]\n01=9\n02=\n03=5\n[PortConfig]\n01=F|F|1|0|0|0|0|0|0|F|0|0|0|0|1|0|0|F|8\n",
             "click cmdSort\nclick cmdOK\n", "",
             "[LinkTrunk]\n01=5\n02=9\n[PortConfig]\n01=F|F|1|0|0|0|0|0|0|F|0|0|0|0|2|0|0|F|8\n");
}

TEST(NumberEditors, LeavingAsksOnlyAfterChanges) {
  const std::string ask =
      "ask: Data was change if you closed this windows data may be lost.  Do you want to save? -> ";
  const std::string project = "[VMCallBack]\n01=12|F\n";
  ExpectEdit("frmVMCallBack", project, "click cmdCancel\n", "", project);
  ExpectEdit("frmVMCallBack", project, "go 1 1\npress Backspace\nanswer No\nclick cmdCancel\n", ask + "No",
             project + "-02\n");
  ExpectEdit("frmVMCallBack", project, "go 1 1\npress Backspace\nclick cmdCancel\n", ask + "Yes",
             "[VMCallBack]\n01=1|F\n02=F|F\n");
}

TEST(NumberEditors, StaysOpenAfterAFailedOrOutdatedSave) {
  EditorBench bench("[LinkTrunk]\n01=5\n");
  bench.Run("frmLinkTrunk", "go 2 1\ntype 7\n");
  bench.files.Put(EditorBench::kProject, "[Chk_Tarvok]\nChk=TARVOK\n[LinkTrunk]\n01=6\n");
  EXPECT_THAT(bench.Go("click cmdOK\n"),  // without a prepared answer
              ElementsAre("ask: The project was changed by another program. Yes overwrites what the other "
                          "program wrote to this table. Do you still want to save? -> No"));
  EXPECT_TRUE(!bench.editor->closed() && bench.editor->save_refused());
  bench.files.calls = 0;
  bench.files.fail_at = 1;
  EXPECT_THAT(bench.Go("answer Yes\nclick cmdOK\n"),
              testing::SizeIs(2));  // a question, and the reason for the failure
  EXPECT_FALSE(bench.editor->closed());
  EXPECT_TRUE(bench.state.data_changed);
  bench.files.fail_at = 0;
  bench.Go("answer Yes\nclick cmdOK\n");
  EXPECT_EQ(bench.Get("LinkTrunk", "02"), "7");
}

TEST(NumberEditors, SavingDoesNotRecreateAMissingProject) {
  const std::string gone = "box: The project /p.tvk is missing. Put it back in its place and try again.";
  const std::string no_project = "box: /p.tvk File not found or File not correct.";
  for (const auto& [left, said] :
       {std::pair<const char*, std::string>{nullptr, gone}, {"[A]\nx=1\n", no_project}}) {
    EditorBench bench("[LinkTrunk]\n01=5\n");
    bench.Run("frmLinkTrunk", "go 2 1\ntype 7\n");
    const std::string project = bench.Bytes();
    bench.files.files.erase(EditorBench::kProject);
    if (left != nullptr) bench.files.Put(EditorBench::kProject, left);
    const std::size_t files = bench.files.files.size();
    EXPECT_THAT(bench.Go("click cmdOK\n"), ElementsAre(said));
    EXPECT_EQ(bench.files.files.size(), files);
    EXPECT_TRUE(!bench.editor->closed() && bench.editor->save_refused() && bench.state.data_changed);
    bench.files.Put(EditorBench::kProject, project);
    EXPECT_THAT(bench.Go("click cmdOK\n"), IsEmpty());
    EXPECT_EQ(bench.Get("LinkTrunk", "02"), "7");
  }
}

TEST(HuntGroupEditor, AddsAndDeletesMembersInOrder) {
  ExpectEdit("frmGrpHunt",
             "[Assign]\nNow=4\n001=201|0|001|F|001\n002=300|1|1|F|F\n003=202|0|002|F|F\n004=F|0|F\n"
             "[Name]\nNow=1\n001=Bar\n[HuntGroup]\nNow=9\n01=003|002||F|777\n03=001\n",
             "list ListView1\nlist lsGroupHunt(0)\nvalue lsGroup\n"
             "click ListView1(0)\nclick cmdAdd\nfocus lsGroupHunt(0)\npick 300 - \nclick cmdDel\n"
             "click lsGroup(6)\nclick cmdAdd\nclick cmdDel\nclick lsGroup(2)\nclick lsGroupHunt(2)\n"
             "click lsGroupHunt(0)\nfocus lsGroupHunt(2)\npick 201 - Bar\nclick cmdDel\nclick cmdOK\n",
             "201 - Bar\n202 - \n202 - \n300 - \n777\nHunt Group 01",
             "[HuntGroup]\n01=003|777|001\n03=\n07=001\n20=\nNow=4\n");
}

TEST(HuntGroupEditor, AcceptsFiveHundredMembers) {
  std::string members = "001";
  for (int i = 1; i < 499; ++i) members += "|001";
  ExpectEdit("frmGrpHunt", "[Assign]\nNow=1\n001=201|0|001\n[HuntGroup]\n20=" + members + "\n",
             "click ListView1(0)\nclick cmdAdd\nclick cmdAdd\nclick cmdOK\n",
             "box: Over limit data you cannot add. ", "[HuntGroup]\n01=001\nNow=500\n");
}

TEST(PortConfigEditor, StoresControlsInFields) {
  ExpectEdit("frmPortConfig_Def", "[COR_Group]\n02=01\n12=03|04\n",
             "list cmbClass_d\nlist cmbTransfer\nvalue txtSetCO\nvalue cmbOE\nclick lsPortConfig(4)\n"
             "focus cmbClass_d\npick COR Group 02\nfocus cmbClass_n\npick COR Group 12\nfocus cmbTransfer\n"
             "pick ON\nfocus cmbCID\npick MDMF\nfocus cmbConnect\npick 20 PPS\nfocus cmbMusic\n"
             "pick VM on CO\nfocus txtSetCO\ntype 02567\nfocus txtSetTOIn\ntype 255\nfocus cmbOE\npick 9\n"
             "focus txtHotOper\ntype 1234567890123*\nset chkHook 1\nset optReverse(2) 1\n"
             "set optReverse(3) 1\nset chkFAX 1\nset chkNotPrint 1\nset chkLinkTrunk 1\nfocus cmbTrunkType\n"
             "pick 30\nset chkWarning 1\nfocus txtTOhangon\ntype 300\nfocus cmbHoldCOR\npick COR Group 12\n"
             "focus cmbTransTO\npick 16 Rings Disc\nclick lsPortConfig(6)\nfocus cmbTransTO\npick Default\n"
             "click lsPortConfig(7)\nfocus cmbTransTO\npick 16\nclick cmdOK\n",
             "\nCOR Group 02\nCOR Group 12\nON\nOFF\n0\nNone",
             "[PortConfig]\n-01\n05=02|12|1|2|3|4|25|255|9|123456789012|1|3|1|1|30|1|30|12|255\n"
             "07=F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|8\n08=F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|16\n");
}

TEST(PortConfigEditor, ShowsOldValuesAndStoresThemInTheControlsForm) {
  ExpectEdit(
      "frmPortConfig_Def",
      "[PortConfig]\n01=3|x|2|3|4|9|300|0|F|12|0|7|0|0|31|0|0|F|0\n02=F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|8\n"
      "03=F|F|1|0|0|0|0|0|0|F|0|1|0|0|30|0|0|F|256\n04=5|F|F|1\n05=F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|0\n"
      "[COR_Group]\n03=01\n",
      "value cmbClass_d\nvalue cmbClass_n\nvalue cmbTransfer\nvalue cmbOE\nvalue chkLinkTrunk\n"
      "value cmbTransTO\nvalue optReverse(0)\nclick lsPortConfig(1)\nvalue cmbTransTO\n"
      "click lsPortConfig(2)\nvalue cmbTransTO\nvalue chkLinkTrunk\nvalue cmbTrunkType\n"
      "value optReverse(1)\nset chkLinkTrunk 0\nclick cmdOK\n",
      "COR Group 03\n\nOFF\nNone\n0\n\n1\nDefault\n16 Rings Disc\n1\n30\n1",
      "[PortConfig]\n01=03|F|0|0|0|0|300|0|0|12|0|0|0|0|0|0|0|F|0\n"
      "03=F|F|1|0|0|0|0|0|0|F|0|1|0|0|0|0|0|F|255\n04=05|F|F|1|0|0|0|0|0|F|0|0|0|0|0|0|0|F|F\n-05\n");
}

TEST(PortConfigEditor, ShowsAndKeepsAGroupWithoutClasses) {
  const std::string project = "[PortConfig]\n01=5|07|1|0|0|0|0|0|0|F|0|0|0|0|0|0|0|6|8\n[COR_Group]\n03=01\n";
  ExpectEdit("frmPortConfig_Def", project,
             "list cmbClass_d\nvalue cmbHoldCOR\nset chkFAX 1\nfocus cmbClass_n\npick\nclick cmdOK\n",
             "\nCOR Group 03\nCOR Group 05\nCOR Group 06",
             "[PortConfig]\n01=05|F|1|0|0|0|0|0|0|F|0|0|1|0|0|0|0|06|8\n");
}

TEST(PortConfigEditor, KeepsValuesOfAnExchangeBeyondTheLists) {
  ExpectEdit("frmPortConfig_Def",
             "[PortConfig]\n01=120|121|1|0|0|0|0|0|0|F|0|0|0|0|0|0|0|122|17\n"
             "02=F|F|1|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|254\n",
             "value cmbClass_d\nvalue cmbTransTO\nclick lsPortConfig(1)\nvalue cmbTransTO\n"
             "click lsPortConfig(0)\nfocus cmbClass_n\npick\nclick lsPortConfig(1)\nfocus cmbTransTO\n"
             "pick Default\nclick lsPortConfig(2)\nlist cmbTransTO\nclick lsPortConfig(0)\nvalue "
             "cmbTransTO\nset chkFAX 1\nclick cmdOK\n",
             "\n17\n254\nDefault\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16\n16 Rings Disc\n17",
             "[PortConfig]\n01=120|F|1|0|0|0|0|0|0|F|0|0|1|0|0|0|0|122|17\n"
             "02=F|F|1|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|8\n");
}

}  // namespace
}  // namespace tarvok::test
