#include "tests/editors/ports/every_reference.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNumbers =
    "[Assign]\nNow=4\n001=201|0|001|F|001\n002=300|1|1|F|F\n003=202|0|002|F|F\n004=F|0|F\n"
    "[Name]\nNow=1\n001=Bar\n[HuntGroup]\nNow=9\n01=003|002||F|777\n03=001\n";

TEST(HuntGroups, MembersComeAndGoInTheirOrder) {
  EditorBench bench(kNumbers);
  EXPECT_THAT(bench.Run("frmGrpHunt", "list ListView1\nlist lsGroupHunt(0)\nvalue lsGroup\n"),
              ElementsAre("201 - Bar", "202 - ", "202 - ", "300 - ", "777", "Hunt Group 01"));
  EXPECT_FALSE(bench.state.DataChanged);
  EXPECT_THAT(
      bench.Go("click ListView1(0)\nclick cmdAdd\nfocus lsGroupHunt(0)\npick 300 - \nclick cmdDel\n"
               "click lsGroup(6)\nclick cmdAdd\nclick cmdDel\nclick lsGroup(2)\nclick lsGroupHunt(2)\n"
               "click lsGroupHunt(0)\nfocus lsGroupHunt(2)\npick 201 - Bar\nclick cmdDel\nclick cmdOK\n"),
      IsEmpty());
  bench.ExpectKeys("[HuntGroup]\n01=003|777|001\n03=\n07=001\n20=\nNow=4\n");
  EXPECT_FALSE(bench.state.DataChanged);
}

TEST(HuntGroups, TheLastMemberThatFitsIsTheFiveHundredth) {
  std::string members = "001";
  for (int i = 1; i < 499; ++i) members += "|001";
  EditorBench bench("[Assign]\nNow=1\n001=201|0|001\n[HuntGroup]\n20=" + members + "\n");
  EXPECT_THAT(bench.Run("frmGrpHunt", "click ListView1(0)\nclick cmdAdd\nclick cmdAdd\nclick cmdOK\n"),
              ElementsAre("box: Over limit data you cannot add. "));
  bench.ExpectKeys("[HuntGroup]\n01=001\nNow=500\n");
}

}  // namespace
}  // namespace tarvok::test
