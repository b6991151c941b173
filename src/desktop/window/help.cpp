#include "desktop/window/help.h"

#include <algorithm>

#include <QMessageBox>

#include "desktop/look/shown_text.h"
#include "frame/main_frame.h"

namespace tarvok::desktop {
namespace {

struct Topic {
  std::string_view form;
  std::string_view title;
  std::string_view text;
};

/** Of every form that is not among those below. */
constexpr Topic kEditors = {
    "", "Editors",
    "<p>A click on another command, Close and Exit save the changes without a question; <b>Cancel</b> asks. "
    "Ctrl+S is <b>Save</b>.</p>"
    "<p>In a table a character goes to the cell, if its column takes it. Backspace takes the last one off, "
    "Delete empties the selected cells.</p>"
    "<table cellspacing='6'>"
    "<tr><td>Return, arrows, Tab</td><td>the next row; to the next cell</td></tr>"
    "<tr><td>Ctrl+Tab, Ctrl+Shift+Tab</td><td>out of the table</td></tr>"
    "<tr><td>F2, double click</td><td>opens the cell</td></tr>"
    "<tr><td>F4, Alt+Down</td><td>opens the list</td></tr>"
    "<tr><td>Ctrl+Z, Ctrl+Y</td><td>undo, redo</td></tr>"
    "<tr><td>Ctrl+C, Ctrl+X, Ctrl+V</td><td>copy, cut, paste, as spreadsheets do</td></tr>"
    "<tr><td>Ctrl+D</td><td>the first selected row into the selected ones below it</td></tr>"
    "<tr><td>Ctrl+H, Ctrl+Shift+F</td><td>find and replace; show only rows with a text</td></tr>"
    "<tr><td>Ctrl+Shift+A, Ctrl++, Ctrl+-</td><td>add, insert, delete a row</td></tr>"
    "<tr><td>Ctrl+U</td><td>what refers to the row</td></tr>"
    "</table>"};

constexpr Topic kTopics[] = {
    {"", "Tarvok Setup",
     "<p>A project is a file with the whole configuration of one exchange. <b>New</b> makes one from the "
     "supplied defaults, <b>Open</b> takes an existing one, and the list of the PBX menu holds the last "
     "five.</p>"
     "<p>With a project open the tree at the left holds its 33 commands. A click, or Enter, opens a "
     "command's "
     "form; the form before is closed and its changes are saved without a question. Only a form's own Cancel "
     "asks.</p>"
     "<p>The project is kept before every save of a form and before a load replaces it. <b>Earlier "
     "Versions</b> of the PBX menu shows what differs and brings one back. <b>Find Anywhere</b>, Ctrl+F, "
     "looks "
     "for a number, a name, a port such as 3-4 or any text, and Enter goes there.</p>"
     "<p>Keys: Ctrl+N new, Ctrl+O open, Ctrl+W close, Ctrl+Q exit, Ctrl+T command tree, F6 to the pane and "
     "back, "
     "F1 help for what is open.</p>"},
    {"frmConnect", "Transfer Config",
     "<p><b>Send Data Config</b> sends every section of the project to the exchange. With <b>Compare "
     "Byte</b> "
     "each one is read back and compared; exchanges from version 1.09 on can do that. <b>What will "
     "change?</b> "
     "compares the project with what this exchange got or gave last.</p>"
     "<p><b>Load Data Config</b> reads the exchange into a new project and asks at its end whether that "
     "replaces the open one. Until that answer the open project stays as it is.</p>"
     "<p><b>Send PBX Link Table</b>, <b>Send New IP PBX</b> and <b>Send Mini Bar</b> send that part alone. "
     "<b>Ping Test</b> changes nothing in the exchange.</p>"
     "<p>How the exchange is reached is set under <b>Settings</b> and belongs to the project. While a send "
     "runs "
     "the window can't be closed; a load, and waiting for a connection, end when it is closed.</p>"},
    {"frmMiniBarCon", "Transfer Mini Bar",
     "<p><b>Send Mini Bar</b> sends the 512 records of the mini bar list, <b>Load Mini Bar</b> reads them "
     "into "
     "a copy of the project and asks at its end whether that replaces the open one. Exchanges from version "
     "1.06 "
     "on have the list.</p>"},
    {"frmBilling", "Transfer File Billing",
     "<p>Sends the tariff tables, the files tbl*.bil of a folder, to the exchange as they are. A table that "
     "is "
     "not in the folder is passed over after a question.</p>"},
    {"frmSetting", "Setting Program",
     "<p>How this project reaches its exchange. Com1 to Com8 are indices that travel with the project; which "
     "device stands behind each is this computer's own setting. A device that is missing in the list can be "
     "typed as a path.</p>"
     "<p>A serial device that may not be opened belongs to the group <i>dialout</i>: the administrator adds "
     "a "
     "user to it, and it holds from the next log-in on.</p>"},
    {"frmPassword2", "Password",
     "<p>The exchange decides whether the password is right and what its level may do; the program keeps "
     "none. "
     "After three wrong tries the session ends.</p>"
     "<p><b>Change Password</b> sends new passwords for the levels that are marked, once the log-in has "
     "passed.</p>"},
    {"frmAbout", "About", "<p>The program's version and what it brought.</p>"},
};

}  // namespace

void ShowHelp(QWidget* parent, std::string_view form_name) {
  const auto* found = std::find_if(std::begin(kTopics), std::end(kTopics),
                                   [&](const Topic& topic) { return topic.form == form_name; });
  const Topic& topic = found == std::end(kTopics) ? kEditors : *found;
  QMessageBox box(QMessageBox::NoIcon, Words(kBoxTitle),
                  QStringLiteral("<h3>%1</h3>%2").arg(Words(topic.title), Words(topic.text)),
                  QMessageBox::Close, parent);
  box.setObjectName(QStringLiteral("Help"));
  box.setTextFormat(Qt::RichText);
  box.exec();
}

}  // namespace tarvok::desktop
