#pragma once

#include <string>

#include <QTableView>

#include "desktop/forms/editor_page.h"
#include "tests/desktop/desktop_bench.h"
#include "tests/expect_keys.h"
#include "tests/floors.h"

namespace tarvok::test {

/** The window with the example hotel and all editors. */
class EditorDesk : public DesktopBench {
 public:
  /** `shared`: a project that is also open elsewhere; without it the desk has its own copy. */
  explicit EditorDesk(const std::string& shared = {}) {
    if (!shared.empty()) project = shared;
    StartFrame(RealCommands());
    frame->OpenProject(project);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  void ExpectKeys(const std::string& keys) { test::ExpectKeys(*store.Snapshot(project), keys); }
  QAction& Letters() {
    for (auto* menu : window->findChildren<QMenu*>()) {
      if (menu->title().contains(QStringLiteral("Letters"))) return *menu->menuAction();
    }
    throw std::logic_error("no menu of letters");
  }
  QTableView* Table() { return Find<QTableView>("mgTest"); }
  void GoTo(int row, int column) { Table()->setCurrentIndex(Table()->model()->index(row - 1, column - 1)); }
  /** The text of a cell, and of all cells of a column. */
  QString Cell(int row, int column) { return Table()->model()->index(row - 1, column - 1).data().toString(); }
  QStringList Column(int column) {
    QStringList texts;
    for (int row = 1; row <= Table()->model()->rowCount(); ++row) texts += Cell(row, column);
    return texts;
  }
  void Click(const char* button) {
    QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
    QTest::qWait(1);  // the form is deleted after the click
  }
};

}  // namespace tarvok::test
