#include "programs/ctl/edit_help.h"

#include "editors/editors.h"
#include "programs/uses.h"

namespace tarvok::ctl {

std::string EditHelp() {
  std::string forms;
  for (const Editor* editor : Editors()) forms.append(forms.empty() ? "" : " ").append(editor->name.form);
  return "Forms: " + forms +
         "\n\n"
         "Commands, one a line:\n"
         "  go ROW COLUMN                   makes a cell the current one; a column by its title in quotes or "
         "by number\n"
         "  select ROW COLUMN ROW COLUMN    a rectangle\n"
         "  type TEXT                       each character as a key press\n"
         "  press KEY                       Backspace, Delete, Return, Escape, Tab, Up, Down, Left, Right\n"
         "  pick TEXT                       that entry of the list; without a text the blank one\n"
         "  focus CONTROL, set CONTROL VALUE, click CONTROL    a control by its name: cmdOK, Check1(3)\n"
         "  paste TEXT, copy, cut           the clipboard, with \\t and \\n in TEXT\n"
         "  answer WORD ...                 what the next questions are answered: Yes, No\n"
         "  list CONTROL, show, value CONTROL    print a list's entries, the table, a control's value";
}

}  // namespace tarvok::ctl
