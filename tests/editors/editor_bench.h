#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "editing/form_script.h"
#include "editors/editors.h"
#include "tests/expect_keys.h"
#include "tests/floors.h"
#include "tests/matchers.h"
#include "tests/source_file.h"
#include "tests/store/memory_files.h"

namespace tarvok::test {

/** A project and an editor, driven by a key script. Boxes and questions are recorded as lines. */
class EditorBench {
 public:
  static constexpr const char* kProject = "/p.tvk";
  static constexpr const char* kSystemFile = "/system.tvs";

  /** `project` is the text of a project without its header. */
  explicit EditorBench(std::string_view project = {}) {
    files.Put(kProject, "[Chk_Tarvok]\nChk=TARVOK\n" + std::string(project));
    state.project_file = kProject;
  }

  /** Opens the form and runs the script, one command per line; an invalid line fails the test. Returns the
   * output lines. A form that is still open is dropped without saving. */
  std::vector<std::string> Run(std::string_view form, const std::string& script) {
    Open(form);
    return Go(script);
  }
  void Open(std::string_view form) {
    state.data_changed = false;
    const Editor* found = FindEditor(form);
    ASSERT_NE(found, nullptr) << form;
    editor = OpenEditor(*found, {.store = store,
                                 .state = state,
                                 .questions = questions,
                                 .system_file = kSystemFile,
                                 .keep = {},
                                 .end_program = [this] { ++programs_ended; }});
  }
  /** Runs a script on the open form. */
  std::vector<std::string> Go(const std::string& script) {
    lines.clear();
    FormScript runner(*editor, questions);
    std::istringstream in(script);
    for (std::string line; std::getline(in, line);) EXPECT_EQ(runner.Run(line), "") << line;
    return lines;
  }

  std::string Get(std::string_view section, std::string_view key) {
    return store.GetIniValue(kProject, section, key);
  }
  /** The cells of a row of the open form's table, from column `first` to `last`. */
  std::vector<std::string> Cells(int row, int first, int last) const {
    std::vector<std::string> cells;
    for (int column = first; column <= last; ++column) cells.push_back(editor->table()->Cell(row, column));
    return cells;
  }
  std::string Bytes() { return files.Bytes(kProject); }
  void ExpectKeys(const std::string& text) { test::ExpectKeys(*store.Snapshot(kProject), text); }

  MemoryFiles files;
  ProjectStore store{files};
  SharedState state;
  int programs_ended = 0;
  std::vector<std::string> lines;
  ScriptedQuestions questions{[this](std::string_view line) { lines.emplace_back(line); }};
  std::unique_ptr<EditorForm> editor;
};

/** The question before a save that clears references, answered with Yes; `used` ends with their number. */
inline std::string AskedToClear(const std::string& used) {
  const bool one = used.ends_with(" 1");
  return "ask: " + used + (one ? " place, which becomes" : " places, which become") +
         " not set. Do you want to save? -> Yes";
}

/** Runs a script on a form and checks its output, line by line, and the resulting keys of the project. */
inline void ExpectEdit(std::string_view form, std::string_view project, const std::string& script,
                       const std::string& said, const std::string& keys) {
  EditorBench bench(project);
  std::string all;
  for (const std::string& line : bench.Run(form, script)) all += "\n" + line;
  EXPECT_EQ(all, said.empty() ? said : "\n" + said);
  bench.ExpectKeys(keys);
}

}  // namespace tarvok::test
