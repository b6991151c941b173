#include <algorithm>
#include <map>
#include <set>

#include "editing/table_csv.h"
#include "editing/table_operations.h"
#include "project/difference.h"
#include "tests/contract/random_images.h"
#include "tests/editors/editor_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

/** Changes that a save makes by design although nothing was edited: it writes rows that the project did not
 * have. On the wire they differ from missing rows. */
bool IsByDesign(std::string_view form, const Difference& difference) {
  static const std::multimap<std::string_view, std::string_view> kRows = {
      {"frmSetRoute", "PBX Link"},  // missing is 0x10, blank is 0x00; the gateway shows its first number
      {"frmSetupKey", "Layout"},    // a missing layout is 0, one without keys is 255
  };
  const auto [first, last] = kRows.equal_range(form);
  return std::any_of(first, last, [&](const auto& row) { return difference.row.starts_with(row.second); });
}

/** The example, and a new project. */
const std::string kProjects[] = {SourceFile("/examples/hotel.tvk"), SourceFile("/data/system.tvs")};

EditorBench BenchOf(const std::string& project) {
  EditorBench bench;
  bench.files.Put(EditorBench::kProject, project);
  bench.files.Put(EditorBench::kSystemFile, kProjects[1]);
  return bench;
}

/** Opens a form and forces a save without a change. */
void SaveAll(EditorBench& bench, const Editor& editor) {
  bench.Run(editor.name.form, "");
  bench.state.data_changed = true;
  bench.Go("click cmdOK\n");
}

TEST(EveryEditor, SavingUnchangedKeepsTheMeaning) {
  for (const std::string& project : kProjects) {
    for (const Editor* editor : Editors()) {
      SCOPED_TRACE(editor->name.form);
      EditorBench bench = BenchOf(project);
      EXPECT_THAT(bench.Run(editor->name.form, "click cmdOK\n"), IsEmpty());
      EXPECT_TRUE(bench.editor->closed());
      EXPECT_EQ(bench.Bytes(), project) << "nothing was changed";
      SaveAll(bench, *editor);
      for (const Difference& difference : CompareProjects(IniText(project), IniText(bench.Bytes()))) {
        if (IsByDesign(editor->name.form, difference)) continue;
        ADD_FAILURE() << difference.row << ", " << difference.field << ": " << difference.before << " -> "
                      << difference.after;
      }
      const std::string saved = bench.Bytes();
      SaveAll(bench, *editor);
      EXPECT_EQ(bench.Bytes(), saved) << "saved twice";
    }
  }
}

/** Rows with too few fields, garbage and dangling references must not break any editor. An editor that cannot
 * save them must say so. */
TEST(EveryEditor, OpensAndSavesGarbage) {
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

/** Importing the table's own export, or pasting its own copy, must change nothing. */
void ExpectOwnTextBack(TableEditor& table) {
  const std::string csv = ExportCsv(table);
  const std::size_t steps = table.Steps();
  EXPECT_EQ(ImportCsv(table, csv).message(), "");
  EXPECT_EQ(ExportCsv(table), csv);
  EXPECT_EQ(table.Steps(), steps);
  bool breaks = false;  // in a cell: the clipboard cannot hold them
  for (int row = 1; row <= table.rows(); ++row) {
    for (const std::string& cell : table.row(row).cells)
      breaks = breaks || cell.find_first_of("\t\r\n") != std::string::npos;
  }
  if (breaks) return;
  table.GoTo(1, 1);
  table.SelectTo(table.rows(), table.columns());
  for (const Refusal& each : PasteCells(table, CopyCells(table))) {
    if (table.column(each.column).entry == Entry::kReadOnly) continue;
    ADD_FAILURE() << "row " << each.row << ", " << table.column(each.column).title << ": \"" << each.text
                  << "\" " << each.why;
  }
  EXPECT_EQ(ExportCsv(table), csv);
  EXPECT_EQ(table.Steps(), steps);
}

TEST(EveryEditor, ATableAcceptsItsOwnText) {
  std::map<std::string, std::string> projects = {{"hotel", kProjects[0]}, {"new", kProjects[1]}};
  for (const int version : {102, 110}) {
    for (unsigned kind = 0; kind < kKinds; ++kind) {
      projects["loaded " + std::to_string(version) + " " + std::to_string(kind)] =
          "[Chk_Tarvok]\nChk=TARVOK\n" + Load(version, ImagesOf(version, kind)).bytes() +
          "[MiniBar]\n001=A name of 20 letters|65000\n003= 'x'|F\n";
    }
  }
  int tables = 0;
  for (const auto& [name, project] : projects) {
    for (const Editor* editor : Editors()) {
      SCOPED_TRACE(name + ", " + std::string(editor->name.form));
      EditorBench bench = BenchOf(project);
      bench.Open(editor->name.form);
      TableEditor* table = bench.editor->table();
      if (table == nullptr) continue;
      ++tables;
      ExpectOwnTextBack(*table);
      for (const char* pages : {"lsCOR", "lsCORGroup", "lsRoute"}) {
        auto* list = bench.editor->Find<ListBox>({pages});
        for (int page = 1; list != nullptr && page < static_cast<int>(list->entries.size()); page += 7) {
          bench.editor->ChooseEntry(*list, page);
          ExpectOwnTextBack(*table);
        }
      }
    }
  }
  EXPECT_GT(tables, 100);
}

TEST(EveryEditor, SavingWithoutAProjectIsRefusedAndEndsTheProgramInFourForms) {
  std::set<std::string_view> ended;
  for (const Editor* one : Editors()) {
    SCOPED_TRACE(one->name.form);
    EditorBench bench;
    bench.files.Put(EditorBench::kSystemFile, SourceFile("/data/system.tvs"));
    bench.Open(one->name.form);
    bench.state.project_file.clear();
    bench.state.data_changed = true;
    EXPECT_THAT(bench.Go("click cmdOK\n"), ElementsAre(StartsWith("box: ")));
    EXPECT_FALSE(bench.editor->closed());
    if (bench.programs_ended > 0) ended.insert(one->name.form);
  }
  EXPECT_THAT(ended, ElementsAre("frmExtension", "frmPortSys_Def", "frmRoute", "frmRouteMap"));
}

TEST(FormScript, NamesWhatItCannotDo) {
  EditorBench bench = BenchOf(kProjects[0]);
  const std::tuple<const char*, const char*, const char*> kLines[] = {
      {"frmGrpHunt", "click Nothing", "unknown control Nothing"},
      {"frmGrpHunt", "click lsGroup(abc)", "unknown control lsGroup(abc)"},
      {"frmGrpHunt", "click lsGroup(1", "unknown control lsGroup(1"},
      {"frmGrpHunt", "click lsGroup(99)", "unknown control lsGroup(99)"},
      {"frmGrpHunt", "set lsGroup 99", "no entry 99"},
      {"frmGrpHunt", "go 1 1", "the form has no table"},
      {"frmGrpHunt", "dance", "unknown command dance"},
      {"frmGrpHunt", "answer Perhaps", "unknown answer Perhaps"},
      {"frmTenan", "set HScroll1 x", "no value x"},
      {"frmAccount", "go 0 1", "unknown cell 0 1"},
      {"frmAccount", "go 1 Name", "unknown cell 1 Name"},
      {"frmAccount", "select 1 1 999 1", "unknown cell"},
      {"frmAccount", "pick 7", "no entry 7"},
      {"frmBillingMode", "set Check1(5) maybe", "neither on nor off: maybe"},
  };
  for (const auto& [form, line, error] : kLines) {
    bench.Open(form);
    EXPECT_EQ(FormScript(*bench.editor, bench.questions).Run(line), error) << line;
    EXPECT_FALSE(bench.state.data_changed) << line;
  }
}

TEST(EveryEditor, AFindingSelectsItsHoliday) {
  EditorBench bench("[SystemConfig]\nW01=01|01\nW03=12|24\n");
  bench.Open("frmSystemConfig");
  EXPECT_TRUE(bench.editor->ShowPlace("SystemConfig", 3, 1));
  EXPECT_EQ(bench.editor->Find<ListBox>({"ListView1"})->Chosen(), "12/24");
  EXPECT_FALSE(bench.editor->ShowPlace("SystemConfig", 2, 0));
  EXPECT_FALSE(bench.state.data_changed);
}

}  // namespace
}  // namespace tarvok::test
