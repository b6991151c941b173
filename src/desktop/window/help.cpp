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

/** For all forms that are not in the list below. */
constexpr Topic kEditors = {
    "", "Editors",
    "<p>Another command, Close and Exit save the changes without asking; <b>Cancel</b> asks. "
    "Ctrl+S is <b>Save</b>.</p>"
    "<p>In a table a character goes into the cell if its column accepts it. Backspace deletes the last one, "
    "Delete empties the selected cells.</p>"
    "<table cellspacing='6'>"
    "<tr><td>Return, arrows, Tab</td><td>the next row; to the next cell</td></tr>"
    "<tr><td>Ctrl+Tab, Ctrl+Shift+Tab</td><td>leaves the table</td></tr>"
    "<tr><td>F2, double click</td><td>opens the cell</td></tr>"
    "<tr><td>F4, Alt+Down</td><td>opens the list</td></tr>"
    "<tr><td>Ctrl+Z, Ctrl+Y</td><td>undo, redo</td></tr>"
    "<tr><td>Ctrl+C, Ctrl+X, Ctrl+V</td><td>copy, cut, paste, as spreadsheets do</td></tr>"
    "<tr><td>Ctrl+D</td><td>copies the first selected row into those below it</td></tr>"
    "<tr><td>Ctrl+H, Ctrl+Shift+F</td><td>find and replace; show only rows with a text</td></tr>"
    "<tr><td>Ctrl+Shift+A, Ctrl++, Ctrl+-</td><td>add, insert, delete a row</td></tr>"
    "<tr><td>Ctrl+U</td><td>used by: what refers to the row</td></tr>"
    "</table>"};

constexpr Topic kTopics[] = {
    {"", "Tarvok Setup",
     "<p>A project is a file with the whole configuration of one exchange. <b>New</b> creates one from the "
     "supplied defaults, <b>Open</b> opens an existing one, and the PBX menu lists the last five.</p>"
     "<p>When a project is open, the tree on the left has its 33 commands. A click or Enter opens the form "
     "of a "
     "command; the previous form is saved and closed without asking. Only Cancel in a form asks.</p>"
     "<p>The project is kept before every save of a form and before a load replaces it. <b>Earlier "
     "Versions</b> of the PBX menu shows the differences and brings a version back. <b>Find Anywhere</b>, "
     "Ctrl+F, finds a number, a name, a port such as 3-4 or any text; Enter goes there.</p>"
     "<p>Keys: Ctrl+N new, Ctrl+O open, Ctrl+W close, Ctrl+Q exit, Ctrl+T command tree, F6 to the pane and "
     "back, F1 help for the open form.</p>"},
    {"frmConnect", "Transfer Config",
     "<p><b>Send Data Config</b> sends every section of the project to the exchange. With <b>Compare "
     "Byte</b> each one is read back and compared, which needs an exchange of version 1.09 or later. "
     "<b>What will change?</b> compares the project with what was last sent to or loaded from this "
     "exchange.</p>"
     "<p><b>Load Data Config</b> reads the exchange into a new project, and finally asks whether to replace "
     "the open one. Until you answer the open project does not change.</p>"
     "<p><b>Send PBX Link Table</b>, <b>Send New IP PBX</b> and <b>Send Mini Bar</b> send only that part. "
     "<b>Ping Test</b> changes nothing in the exchange.</p>"
     "<p><b>Settings</b> sets how the exchange is reached; the project stores it. The window can't be closed "
     "during a send. Closing it ends a load, or the wait for a connection.</p>"},
    {"frmMiniBarCon", "Transfer Mini Bar",
     "<p><b>Send Mini Bar</b> sends the 512 records of the mini bar list, <b>Load Mini Bar</b> reads them "
     "into a copy of the project, and finally asks whether to replace the open one. Exchanges have the list "
     "from version 1.06 on.</p>"},
    {"frmBilling", "Transfer File Billing",
     "<p>Sends the tariff tables, the files tbl*.bil of a folder, to the exchange as they are. If a table "
     "is missing in the folder, you are asked whether to skip it.</p>"},
    {"frmSetting", "Setting Program",
     "<p>How this project reaches its exchange. The project stores Com1 to Com8; the device of each is a "
     "setting "
     "of this computer. If a device is not in the list, type its path.</p>"
     "<p>To open a serial device, join the group <i>dialout</i>: ask the administrator, and log in "
     "again.</p>"},
    {"frmPassword2", "Password",
     "<p>The exchange decides whether the password is right and what its level may do; the program does not "
     "store it. After three wrong tries the session ends.</p>"
     "<p><b>Change Password</b> sends new passwords for the marked levels after the log-in.</p>"},
    {"frmAbout", "About", "<p>The program's version and its changes.</p>"},
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
