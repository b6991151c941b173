#include "tests/editors/editor_bench.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NumberForms, WhatIsTypedPastedAndUndoneIsWhatIsWritten) {
  EditorBench bench("[LinkTrunk]\n01=5\n");
  EXPECT_THAT(bench.Run("frmLinkTrunk",
                        "go 1 Number\ntype 12a34567890123456789\npress Down\ntype 77\nclick mnu_undo\n"
                        "go 3 1\npaste 1\\t2\\n3x\\n5\nclick cmdOK\n"),
              IsEmpty());
  bench.ExpectKeys(
      "[LinkTrunk]\n01=5123456789012345\n"  // the sixteenth digit is the last
      "02=\n03=1\n04=\n"                    // refused whole
      "05=5\n30=\n");
}

TEST(NumberForms, ASortTakesTheProfilesOfALinkTrunkAlong) {
  EditorBench bench("[LinkTrunk]\n01=9\n02=\n03=5\n[PortConfig]\n01=F|F|1|0|0|0|0|0|0|F|0|0|0|0|1|0|0|F|8\n");
  bench.Run("frmLinkTrunk", "click cmdSort\nclick cmdOK\n");
  bench.ExpectKeys("[LinkTrunk]\n01=5\n02=9\n[PortConfig]\n01=F|F|1|0|0|0|0|0|0|F|0|0|0|0|2|0|0|F|8\n");
}

TEST(NumberForms, LeavingAsksOnlyForChanges) {
  EditorBench bench("[VMCallBack]\n01=12|F\n");
  const std::string before = bench.Bytes();
  EXPECT_THAT(bench.Run("frmVMCallBack", "click cmdCancel\n"), IsEmpty());
  EXPECT_THAT(
      bench.Run("frmVMCallBack", "go 1 1\npress Backspace\nanswer No\nclick cmdCancel\n"),
      ElementsAre("ask: Data was change if you closed this windows data may be lost.  Do you want to save? "
                  "-> No"));
  EXPECT_EQ(bench.Bytes(), before);
  bench.Run("frmVMCallBack", "go 1 1\npress Backspace\nclick cmdCancel\n");
  bench.ExpectKeys("[VMCallBack]\n01=1|F\n02=F|F\n");
}

TEST(NumberForms, ASaveThatFailsOrThatOthersOvertookLeavesTheFormOpen) {
  EditorBench bench("[LinkTrunk]\n01=5\n");
  bench.Run("frmLinkTrunk", "go 2 1\ntype 7\n");
  bench.files.Put(EditorBench::kProject, "[Chk_Tarvok]\nChk=TARVOK\n[LinkTrunk]\n01=6\n");
  EXPECT_THAT(
      bench.Go("answer No\nclick cmdOK\n"),
      ElementsAre("ask: The project was changed by another program. Do you still want to save? -> No"));
  EXPECT_FALSE(bench.editor->closed());
  bench.files.calls = 0;
  bench.files.fail_at = 1;
  EXPECT_THAT(bench.Go("click cmdOK\n"), testing::SizeIs(2));  // asked again, and told why it failed
  EXPECT_FALSE(bench.editor->closed());
  EXPECT_TRUE(bench.state.DataChanged);
  bench.files.fail_at = 0;
  bench.Go("click cmdOK\n");
  EXPECT_EQ(bench.Get("LinkTrunk", "02"), "7");
}

}  // namespace
}  // namespace tarvok::test
