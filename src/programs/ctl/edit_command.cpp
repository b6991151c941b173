#include "programs/ctl/edit_command.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

#include "editing/form_script.h"
#include "editors/editors.h"
#include "programs/ctl/exit_status.h"
#include "programs/ctl/project_commands.h"
#include "programs/ctl/terminal_text.h"
#include "programs/uses.h"
#include "store/new_project.h"

namespace tarvok::ctl {
namespace {

/** A line for the terminal; tabs between cells are kept. */
std::string TerminalLine(std::string_view line) {
  std::string shown;
  for (std::size_t tab = line.find('\t'); tab != std::string_view::npos; tab = line.find('\t')) {
    shown.append(ToUtf8(line.substr(0, tab))).append("\t");
    line.remove_prefix(tab + 1);
  }
  return shown + ToUtf8(line);
}

/** Prints the cells that a paste or a menu entry left out, one line each, to standard error. */
void TellRefused(EditorForm& form) {
  TableEditor* table = form.table();
  if (table == nullptr) return;
  for (const Refusal& refused : std::exchange(table->refused, {})) {
    std::cerr << "tarvokctl: left out: row " << refused.row << ", "
              << ToUtf8(table->column(refused.column).title) << ": \"" << ToUtf8(refused.text) << "\" "
              << refused.why << '\n';
  }
}

/** Runs the lines until one is invalid. */
int RunScript(std::istream& lines, EditorForm& form, ScriptedQuestions& questions) {
  FormScript script(form, questions);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    const std::string where = "line " + std::to_string(number) + ": ";
    const std::optional<std::string> bytes = BytesOf(line);
    if (!bytes) return Misused(where + "not in UTF-8, or a letter that the project's code page lacks");
    const std::string wrong = script.Run(*bytes);
    TellRefused(form);
    if (!wrong.empty()) return Misused(where + ToUtf8(wrong));
  }
  return kDone;
}

/** Reads the whole file; false on a read error. A pipe works, too. */
bool ReadWhole(const std::string& path, std::stringstream& text) {
  std::ifstream file(path, std::ios::binary);
  std::array<char, 4096> piece{};
  while (file.read(piece.data(), piece.size()) || file.gcount() > 0) text.write(piece.data(), file.gcount());
  return file.eof() && !file.bad();
}

}  // namespace

int Edit(ProjectStore& store, const std::string& system_file, const std::string& project,
         const std::string& form, const std::string& script) {
  const Editor* editor = FindEditor(form);
  if (editor == nullptr) return Misused("unknown form " + form + "; edit --help lists them");
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  if (editor->needs_system_file) {
    const Status usable = ReadSystemFile(store, system_file).status();
    if (!usable.ok()) return Fail(usable.message());
  }
  std::stringstream file;
  if (!script.empty() && !ReadWhole(script, file)) return Fail("cannot read " + script);
  ScriptedQuestions questions([](std::string_view line) { std::cout << TerminalLine(line) << '\n'; });
  SharedState state;
  state.project_file = project;
  const std::unique_ptr<EditorForm> opened = OpenEditor(*editor, {.store = store,
                                                                  .state = state,
                                                                  .questions = questions,
                                                                  .system_file = system_file,
                                                                  .keep = {},
                                                                  .end_program = {}});
  std::istream& lines = script.empty() ? std::cin : file;
  const int status = RunScript(lines, *opened, questions);
  if (status != kDone) return status;
  if (lines.bad() || (script.empty() && std::ferror(stdin) != 0)) return Fail("cannot read the script");
  return !opened->closed() && opened->save_refused() ? Fail("the form was not saved") : kDone;
}

std::string EditHelp() {
  std::string forms;
  for (const Editor* editor : Editors()) forms.append(forms.empty() ? "" : " ").append(editor->name.form);
  return "Forms: " + forms +
         "\n\n"
         "Commands, one per line:\n"
         "  go ROW COLUMN                   makes a cell current; the column is a title in quotes or a "
         "number\n"
         "  select ROW COLUMN ROW COLUMN    selects a rectangle\n"
         "  type TEXT                       presses a key for each character\n"
         "  press KEY                       Backspace, Delete, Return, Escape, Tab, Up, Down, Left, Right\n"
         "  pick TEXT                       chooses an entry of the list; the blank one without a text\n"
         "  focus CONTROL, set CONTROL VALUE, click CONTROL    a control by name: cmdOK, Check1(3)\n"
         "  paste TEXT, copy, cut           the clipboard, with \\t and \\n in TEXT\n"
         "  answer WORD ...                 the answers to the next questions: Yes, No\n"
         "  list CONTROL, show, value CONTROL    print the entries of a list, the table, the value of a "
         "control";
}

}  // namespace tarvok::ctl
