#include "tests/editors/editor_bench.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kSelectAll = "select 1 1 40 9\nclick mnu_cut\n";

std::string Lists(const std::vector<int>& ends) {
  std::string text = "[Route_List]\nMax=50\n";
  int list = 0;
  for (const int end : ends) {
    ++list;
    text += (list < 10 ? "0" : "") + std::to_string(list) + "=" + std::to_string(end) + "\n";
  }
  return text;
}

constexpr const char* kRoutes =
    "[Route]\nMax=200\n001=02|1|0|F|F|F|F|1|1\n002=01|0|2|9|12|0800|1759|P1|N\n003=02|F|0|F|F|F|F|3|3\n"
    "004=F|F|0|F|F|F|F|4|4\n[Group_Out]\nMax=32\n01=001\n02=002|003\n03=\n";

/** Type Send of the routes that the table shows. */
std::vector<std::string> Shown(EditorBench& bench) {
  std::vector<std::string> shown;
  for (int row = 1; row <= bench.editor->table()->rows(); ++row) {
    if (!bench.editor->table()->IsBlank(row)) shown.push_back(bench.editor->table()->Cell(row, 8));
  }
  return shown;
}

TEST(FrmRoute, UnpacksTheListsAndPacksThemInOrder) {
  EditorBench bench(Lists({0, 3, 3, 5}) + kRoutes);
  EXPECT_THAT(bench.Run("frmRoute", "list cmbMask\n"), ElementsAre("Group Out 1", "Group Out 2"));
  EXPECT_THAT(Shown(bench), IsEmpty());
  bench.Go("click lsRoute(1)\n");
  EXPECT_THAT(Shown(bench), ElementsAre("1", "P1"));
  bench.Go("go 3 8\ntype 7\nclick lsRoute(0)\ngo 1 Group\npick \"Group Out 2\"\nclick cmdOK\n");
  bench.ExpectKeys(
      "[Route]\n001=02|F|0|F|F|F|F|F|F\n002=01|0|2|9|12|0800|1759|P1|N\n"  // sorted by group when it was left
      "003=02|1|0|F|F|F|F|1|1\n004=F|F|0|F|F|F|F|7|F\n"  // without a group it stands last, and stays
      "005=02|F|0|F|F|F|F|3|3\n006=F|F|0|F|F|F|F|4|4\n[Route_List]\n01=2\n02=5\n50=7\n");
}

TEST(FrmRoute, ABlankRowInFrontOfOneWithoutAGroupLosesNothing) {
  EditorBench bench(Lists({4}) + kRoutes);
  bench.Run("frmRoute",
            "select 1 1 1 9\nclick mnu_cut\nclick cmdSort\ngo 3 1\npress Delete\ngo 3 2\npress Delete\n"
            "click cmdOK\n");
  bench.ExpectKeys("[Route_List]\n01=3\n[Route]\n-003\n");
}

TEST(FrmRoute, LookingAtAListIsNoChange) {
  EditorBench bench(Lists({3, 5}) + kRoutes);
  const std::string before = bench.Bytes();
  EXPECT_THAT(bench.Run("frmRoute", "click lsRoute(1)\nclick lsRoute(0)\nclick cmdCancel\n"), IsEmpty());
  EXPECT_EQ(bench.Bytes(), before);
}

TEST(FrmRoute, AListThatIsEmptyIsNamedNoMore) {
  EditorBench bench(Lists({3, 5}) + kRoutes +
                    "[Route_Map_Digit]\n001=1|F|02|F|0\n002=2|F|101|F|0\n003=3|F|01|F\n"
                    "[DIDRedirect]\n001=1|1|2|1|02\n002=1|3|4|0|002\n");
  bench.Run("frmRoute", std::string("click lsRoute(1)\n") + kSelectAll + "click cmdOK\n");
  bench.ExpectKeys(
      "[Route_List]\n02=3\n[Route_Map_Digit]\n001=1|F|F|F|0\n002=2|F|101|F|0\n003=3|F|01|F\n"
      "[DIDRedirect]\n001=1|1|2|1|F\n002=1|3|4|0|002\n[Route]\n-003\n");
  bench.Run("frmRoute", kSelectAll + std::string("click cmdOK\n"));
  bench.ExpectKeys("[Route_List]\n01=0\n50=0\n");
}

TEST(FrmRoute, AListOfMoreThanFortyRoutesStaysWhole) {
  std::string project = Lists({46}) + "[Route]\nMax=40\n";
  for (int route = 1; route <= 45; ++route)
    project += (route < 10 ? "00" : "0") + std::to_string(route) + "=01|0|0|F|F|F|F|" +
               std::to_string(route) + "|F\n";
  EditorBench bench(project + "210=01|0|0|F|F|F|F|9|F\n");
  bench.Run("frmRoute", "click lsRoute(2)\ngo 1 8\ntype 5\nclick lsRoute(0)\n");
  EXPECT_EQ(bench.editor->table()->rows(), 45);
  bench.Go("click mnu_insert_row\nclick cmdOK\n");  // there is no room for another row
  EXPECT_EQ(bench.lines, std::vector<std::string>{"box: Over limit data you cannot add. "});
  bench.ExpectKeys("[Route_List]\n01=46\n[Route]\n045=01|0|0|F|F|F|F|45|F\n-210\n");
}

TEST(FrmRoute, EndsOfAnyKindAreReadAsFarAsTheyGo) {
  // The ends, and Type Send of the second list.
  const std::pair<std::vector<int>, std::vector<std::string>> cases[] = {
      {{5, 3}, {}}, {{3, 0}, {}}, {{3, 2000000000}, {"3", "4"}}, {{-4, 3}, {"1", "P1"}}};
  for (const auto& [ends, second] : cases) {
    EditorBench bench(Lists(ends) + kRoutes);
    bench.Run("frmRoute", "click lsRoute(1)\n");
    EXPECT_EQ(Shown(bench), second);
  }
}

}  // namespace
}  // namespace tarvok::test
