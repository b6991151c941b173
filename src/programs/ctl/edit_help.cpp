#include "programs/ctl/edit_help.h"

#include "editors/editors.h"
#include "programs/uses.h"

namespace tarvok::ctl {

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
