#include <algorithm>
#include <map>

#include "sections/difference.h"
#include "tests/editors/editor_bench.h"

namespace tarvok::test {
namespace {

/** What a save changes although nothing was edited, by design: rows that the project lacked are written. On the
 * wire they are not the same as a missing one. */
bool IsByDesign(std::string_view form, const Difference& difference) {
  static const std::multimap<std::string_view, std::string_view> kRows = {
      {"frmSetRoute",
       "PBX Link"},  // a missing entry is 0x10, a blank one 0x00; the gateway shows its first number
      {"frmSetupKey", "Layout"},  // a missing layout is 0, one without keys 255
  };
  const auto [first, last] = kRows.equal_range(form);
  return std::any_of(first, last, [&](const auto& row) { return difference.row.starts_with(row.second); });
}

/** The example, and a project as New makes it. */
const std::string kProjects[] = {SourceFile("/examples/hotel.tvk"), SourceFile("/data/system.tvs")};

EditorBench BenchOf(const std::string& project) {
  EditorBench bench;
  bench.files.Put(EditorBench::kProject, project);
  bench.files.Put(EditorBench::kSystemFile, kProjects[1]);
  return bench;
}

/** Opens a form and saves what it shows, whether something was changed or not. */
void SaveAll(EditorBench& bench, const Editor& editor) {
  bench.Run(editor.name.form, "");
  bench.state.DataChanged = true;
  bench.Go("click cmdOK\n");
}

TEST(EveryEditor, OpenedAndLeftByOkChangesNoByte) {
  for (const std::string& project : kProjects) {
    for (const Editor* editor : Editors()) {
      EditorBench bench = BenchOf(project);
      EXPECT_THAT(bench.Run(editor->name.form, "click cmdOK\n"), testing::IsEmpty()) << editor->name.form;
      EXPECT_TRUE(bench.editor->closed());
      EXPECT_EQ(bench.Bytes(), project) << editor->name.form;
    }
  }
}

TEST(EveryEditor, ASaveOfWhatWasLoadedMeansTheSame) {
  for (const std::string& project : kProjects) {
    for (const Editor* editor : Editors()) {
      EditorBench bench = BenchOf(project);
      SaveAll(bench, *editor);
      for (const Difference& difference : CompareProjects(IniText(project), IniText(bench.Bytes()))) {
        if (IsByDesign(editor->name.form, difference)) continue;
        ADD_FAILURE() << editor->name.form << ": " << difference.row << ", " << difference.field << ": "
                      << difference.before << " -> " << difference.after;
      }
      const std::string saved = bench.Bytes();
      SaveAll(bench, *editor);
      EXPECT_EQ(bench.Bytes(), saved) << editor->name.form << " saved twice";
    }
  }
}

/** Rows with too few fields, rubbish, references to nothing: no editor may fall over them. One that can't save
 * them says so. */
TEST(EveryEditor, OpensAndSavesAProjectOfRubbish) {
  for (const char* value : {"", "F", "|", "||||", "999|999|999|999|999|999", "x", "F|x|F|x", "0", "-1|-1|-1",
                            "99999999999999999999|1|1|0|0", "|1", "1|", "|99999999999||F|-1|x|1|2|3|4|5|6"}) {
    std::string rubbish;
    std::istringstream lines(kProjects[0]);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t equals = line.find('=');
      const bool row = equals != std::string::npos && line.find("Chk") == std::string::npos;
      rubbish += row ? line.substr(0, equals + 1) + value + "\n" : line + "\n";
    }
    for (const Editor* editor : Editors()) {
      EditorBench bench = BenchOf(rubbish);
      SaveAll(bench, *editor);
      EXPECT_TRUE(bench.editor->closed() || bench.lines.size() == 1) << editor->name.form << " " << value;
    }
  }
}

TEST(EveryEditor, AFindingInAHolidayChoosesThatOne) {
  EditorBench bench("[SystemConfig]\nW01=01|01\nW03=12|24\n");
  bench.Open("frmSystemConfig");
  EXPECT_TRUE(bench.editor->ShowPlace("SystemConfig", 3, 1));
  EXPECT_EQ(bench.editor->Find({"ListView1"})->Chosen(), "12/24");
  EXPECT_FALSE(bench.editor->ShowPlace("SystemConfig", 2, 0));
  EXPECT_FALSE(bench.state.DataChanged);
}

}  // namespace
}  // namespace tarvok::test
