#include "programs/ctl/edit_command.h"

#include <fstream>
#include <iostream>
#include <memory>

#include "programs/ctl/exit_status.h"
#include "programs/ctl/project_commands.h"
#include "programs/ctl/terminal_text.h"
#include "sections/editors.h"
#include "shell/editor/form_script.h"

namespace tarvok::ctl {
namespace {

/** A line for the terminal; tabs stand between cells. */
std::string TerminalLine(std::string_view line) {
  std::string shown;
  for (std::size_t tab = line.find('\t'); tab != std::string_view::npos; tab = line.find('\t')) {
    shown.append(ToUtf8(line.substr(0, tab))).append("\t");
    line.remove_prefix(tab + 1);
  }
  return shown + ToUtf8(line);
}

/** Runs the lines until the form is closed or one is wrong. */
int RunScript(std::istream& lines, EditorForm& form, ScriptedQuestions& questions) {
  FormScript script(form, questions);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    const std::string wrong = script.Run(FromUtf8(line));
    if (!wrong.empty()) return Misused("line " + std::to_string(number) + ": " + ToUtf8(wrong));
  }
  return form.save_failed() ? Fail("the project could not be saved") : kDone;
}

}  // namespace

int Edit(ProjectStore& store, const std::string& system_file, const std::string& project,
         const std::string& form, const std::string& script) {
  const Editor* editor = FindEditor(form);
  if (editor == nullptr) return Misused("unknown form " + form);
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  std::ifstream file;
  if (!script.empty()) {
    file.open(script);
    if (!file) return Fail("cannot open " + script);
  }
  ScriptedQuestions questions([](std::string_view line) { std::cout << TerminalLine(line) << '\n'; });
  SharedState state;
  state.ProjectFile = project;
  const std::unique_ptr<EditorForm> opened = OpenEditor(*editor, {.store = store,
                                                                  .state = state,
                                                                  .questions = questions,
                                                                  .system_file = system_file,
                                                                  .keep = {},
                                                                  .end_program = {}});
  return RunScript(script.empty() ? std::cin : file, *opened, questions);
}

}  // namespace tarvok::ctl
