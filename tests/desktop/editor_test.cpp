#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QListWidget>
#include <QMenuBar>
#include <QTableView>

#include "desktop/forms/editor_page.h"
#include "sections/difference.h"
#include "store/field_list.h"
#include "tests/desktop/desktop_bench.h"
#include "tests/expect_keys.h"

namespace tarvok::test {
namespace {

/** The window on the hotel with every editor there is. */
class EditorDesk {
 public:
  /** `project` is one that is open elsewhere, too; without it the desk has its own. */
  explicit EditorDesk(const std::string& project = {}) {
    if (!project.empty()) bench.project = project;
    std::map<std::string_view, FormFactory> forms;
    for (const Editor* editor : Editors())
      forms[editor->key] = MakeEditorFactory(bench.parts, *editor, *bench.window);
    bench.frame = std::make_unique<MainFrame>(MainFrame::Parts{
        bench.store, bench.recent, bench.state, *bench.window, bench.parts.system_file, std::move(forms)});
    bench.window->Attach(*bench.frame);
    bench.frame->Start(false);
    bench.frame->OpenProject(bench.project);
    EXPECT_TRUE(QTest::qWaitForWindowActive(bench.window.get()));
  }
  std::string Get(std::string_view section, std::string_view key) {
    return bench.store.GetIniValue(bench.project, section, key);
  }
  template <typename Widget>
  Widget* Find(const char* name) {
    return bench.Find<Widget>(name);
  }
  QTableView* Table() { return Find<QTableView>("mgTest"); }
  void GoTo(int row, int column) { Table()->setCurrentIndex(Table()->model()->index(row - 1, column - 1)); }
  void Click(const char* button) {
    QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
    QTest::qWait(1);  // the form goes behind the click
  }

  DesktopBench bench;
};

TEST(EditorPage, CellsAreTypedPastedUndoneAndSaved) {
  EditorDesk desk;
  desk.bench.ClickCommand("linktrunk");
  ASSERT_NE(desk.Table(), nullptr);
  desk.GoTo(3, 1);
  QTest::keyClicks(desk.Table(), "12a3");
  QTest::keyClick(desk.Table(), Qt::Key_Return);
  QTest::keyClicks(desk.Table(), "456");
  QTest::keyClick(desk.Table(), Qt::Key_Backspace);
  desk.GoTo(5, 1);
  QApplication::clipboard()->setText(QStringLiteral("7\nx\n8"));
  QTest::keyClick(desk.Table(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(desk.Find<QLabel>("Refused")->text().contains(QStringLiteral("row 6, Number: \"x\"")));
  desk.GoTo(9, 1);
  QTest::keyClicks(desk.Table(), "99");
  QTest::keyClick(desk.Table(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(desk.bench.state.DataChanged);
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Table(), nullptr);
  ExpectKeys(*desk.bench.store.Snapshot(desk.bench.project),
             "[LinkTrunk]\n03=123\n04=45\n05=7\n06=\n07=8\n09=\n");
  EXPECT_FALSE(desk.bench.history.Versions(desk.bench.project).value().empty());
}

TEST(EditorPage, AnOpenFieldIsSavedWithAClickOnAnotherCommand) {
  EditorDesk desk;
  desk.bench.ClickCommand("linktrunk");
  desk.GoTo(4, 1);
  desk.Table()->edit(desk.Table()->currentIndex());
  auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(field, nullptr);
  QTest::keyClicks(field, "5x5");
  desk.bench.ClickCommand("dialphone");
  EXPECT_EQ(desk.bench.state.ActiveFormName, "frmDialPhone");
  EXPECT_EQ(desk.Get("LinkTrunk", "04"), "55");
}

TEST(EditorPage, CancelAsksAndAClosedPageLeavesItsMenu) {
  EditorDesk desk;
  const auto menus = [&] { return desk.bench.window->menuBar()->actions().size(); };
  const auto before = menus();
  desk.bench.ClickCommand("linktrunk");
  EXPECT_EQ(menus(), before + 1);
  desk.GoTo(1, 1);
  QTest::keyClick(desk.Table(), Qt::Key_Delete);
  std::vector<std::string> texts;
  Script answer({AnswerBox(QMessageBox::No, &texts)});
  desk.Click("cmdCancel");
  EXPECT_TRUE(answer.finished());
  EXPECT_THAT(texts, testing::ElementsAre(testing::StartsWith("Data was change if you closed this windows")));
  EXPECT_EQ(menus(), before);
  EXPECT_NE(desk.Get("LinkTrunk", "01"), "");
}

TEST(EditorPage, RowsAreFilteredReplacedAndLeadToWhatRefersToThem) {
  EditorDesk desk;
  desk.bench.ClickCommand("ext");
  QTest::keyClick(desk.Table(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  auto* filter = desk.Find<QLineEdit>("Filter");
  QTest::keyClicks(filter, "room 10");
  EXPECT_EQ(desk.Find<QLabel>("RowsShown")->text(), QStringLiteral("9 of 500 rows"));
  EXPECT_TRUE(desk.Table()->isRowHidden(0));
  filter->clear();
  EXPECT_FALSE(desk.Table()->isRowHidden(0));

  Script replace({TypeIn("Replace", "FindText", "Room 10"), TypeIn("Replace", "ReplaceText", "Suite 10"), [] {
                    auto* dialog = Modal("Replace");
                    for (auto* button : dialog->findChildren<QPushButton*>()) {
                      if (button->text() == QStringLiteral("Replace &All")) button->click();
                    }
                    EXPECT_EQ(dialog->findChild<QLabel*>(QStringLiteral("Result"))->text(),
                              QStringLiteral("9 cells changed"));
                    qobject_cast<QDialog*>(dialog)->reject();
                    return true;
                  }});
  QTest::keyClick(desk.Table(), Qt::Key_H, Qt::ControlModifier);
  EXPECT_TRUE(replace.finished());
  EXPECT_EQ(desk.Table()->model()->index(1, 4).data().toString(), QStringLiteral("Suite 101"));

  desk.GoTo(2, 1);
  desk.bench.window->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(desk.bench.window.get()));
  desk.Table()->setFocus();
  Script go({[] {
    auto* dialog = qobject_cast<QDialog*>(Modal("UsedBy"));
    if (dialog == nullptr) return false;
    auto* list = dialog->findChild<QListWidget*>(QStringLiteral("UsedByList"));
    EXPECT_EQ(list->count(), 1);
    QTest::keyClick(list, Qt::Key_Return);
    return true;
  }});
  QTest::keyClick(desk.Table(), Qt::Key_U, Qt::ControlModifier);
  EXPECT_TRUE(go.finished());
  QTest::qWait(1);
  EXPECT_EQ(desk.bench.state.ActiveFormName, "frmPortDef");
  EXPECT_EQ(desk.Table()->currentIndex().row(), 82);  // room 101 is on card 8, channel 1
  EXPECT_EQ(desk.Get("Name", "002"), "Suite 101");    // the form that was left saved itself
}

TEST(EditorPage, AStepOfACallsWayOpensItsEditor) {
  EditorDesk desk;
  desk.bench.ClickCommand("routemap");
  desk.GoTo(8, 1);
  auto* path = desk.Find<QWidget>("CallPath");
  EXPECT_EQ(path->accessibleName().toStdString(), "Way of the call: Digits 011X, timeout No Limit");
  QTest::keyClick(path, Qt::Key_Right);
  EXPECT_EQ(path->accessibleName().toStdString(), "Way of the call: List 1");
  QTest::keyClick(path, Qt::Key_Return);
  QTest::qWait(1);
  EXPECT_EQ(desk.bench.state.ActiveFormName, "frmRoute");
}

TEST(EditorPage, TenantsAreTurnedByMouseAndKeysInWholeAndInPart) {
  EditorDesk desk;
  desk.bench.ClickCommand("tenan");
  auto* matrix = desk.Find<QWidget>("TenantMatrix");
  for (const QSize size : {QSize(1240, 800), QSize(760, 460)}) {
    desk.bench.window->resize(size);
    QTest::qWait(20);
    auto* page = desk.Find<EditorPage>("frmTenan");
    Control* cell = page->form().Find({"cell", 1, 2});
    const bool before = cell->on;
    matrix->setFocus();
    for (int i = 0; i < 40; ++i) QTest::keyClick(matrix, Qt::Key_Left);
    for (int i = 0; i < 40; ++i) QTest::keyClick(matrix, Qt::Key_Up);
    QTest::keyClick(matrix, Qt::Key_Right);
    QTest::keyClick(matrix, Qt::Key_Space);
    EXPECT_NE(cell->on, before);
    EXPECT_TRUE(matrix->accessibleName().startsWith(QStringLiteral("tenant 1 ")));
    for (int i = 0; i < 40; ++i) QTest::keyClick(matrix, Qt::Key_Right);
    QTest::keyClick(matrix, Qt::Key_Space);
    EXPECT_FALSE(page->form().Find({"cell", 1, 32})->on == (size.width() > 1000));
  }
}

TEST(EditorPage, TwoWindowsOnOneProjectLoseNoKeyOfEachOther) {
  EditorDesk first;
  EditorDesk second(first.bench.project);
  const IniText before(first.bench.store.Snapshot(first.bench.project)->bytes());
  first.bench.ClickCommand("linktrunk");
  first.GoTo(7, 1);
  QTest::keyClicks(first.Table(), "123");
  second.bench.ClickCommand("dialphone");
  second.GoTo(9, 1);
  QTest::keyClicks(second.Table(), "77");
  first.Click("cmdOK");
  std::vector<std::string> texts;
  Script answer({AnswerBox(QMessageBox::Yes, &texts)});
  second.Click("cmdOK");
  EXPECT_TRUE(answer.finished());
  EXPECT_THAT(texts, testing::ElementsAre(testing::HasSubstr("changed by another program")));
  std::vector<std::string> changed;
  for (const Difference& each : CompareProjects(before, *first.bench.store.Snapshot(first.bench.project)))
    changed.push_back(each.row + ": " + each.after);
  EXPECT_THAT(changed, testing::ElementsAre("Link Trunk 07: 123", "Key Dial Phone 09: 77"));
  for (const auto& [desk, command, row, number] :
       {std::tuple(&second, "linktrunk", 7, "123"), std::tuple(&first, "dialphone", 9, "77")}) {
    desk->bench.ClickCommand(command);
    EXPECT_EQ(desk->Table()->model()->index(row - 1, 0).data().toString(), QString::fromLatin1(number));
  }
}

/** Every editor there is: opened by its command, one thing changed with real keys, saved, reopened, found. */
TEST(EditorPage, EveryCommandTakesAChangeByKeys) {
  EditorDesk desk;
  for (const Editor* editor : Editors()) {
    SCOPED_TRACE(editor->name.form);
    desk.bench.ClickCommand(editor->key);
    auto* page = desk.Find<EditorPage>(std::string(editor->name.form).c_str());
    ASSERT_NE(page, nullptr);
    const std::string before = desk.bench.store.Snapshot(desk.bench.project)->bytes();
    QWidget* changed = nullptr;
    if (QTableView* table = page->findChild<QTableView*>(QStringLiteral("mgTest")); table != nullptr) {
      const TableEditor& rules = *page->form().table();
      int column = 1;
      while (column < rules.columns() && rules.column(column).entry != Entry::kText) ++column;
      if (rules.column(column).entry == Entry::kText) {
        desk.GoTo(1, column);
        changed = table;
        QTest::keyClick(table, Qt::Key_Backspace);
        QTest::keyClick(table, Qt::Key_Backspace);
        QTest::keyClicks(table, "2");
      } else {
        desk.GoTo(rules.rows(), 1);
        changed = table;
        QTest::keyClick(table, Qt::Key_F4);
        if (rules.column(1).entry == Entry::kEditList) {
          auto* combo = table->findChild<QComboBox*>();
          ASSERT_NE(combo, nullptr);
          QTest::keyClicks(combo->lineEdit(), QString::fromStdString(rules.ListOf(rules.rows(), 1).back()));
          QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
        } else {
          ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
          QWidget* popup = QApplication::activePopupWidget();
          QWidget* list = popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
          QTest::keyClick(list, Qt::Key_Down);
          QTest::keyClick(list, Qt::Key_Return);
          QTest::qWait(1);
        }
      }
    }
    for (auto* field : page->findChildren<QLineEdit*>()) {
      if (changed != nullptr || !field->isVisible() || field->objectName() == QStringLiteral("Filter"))
        continue;
      changed = field;
      field->setFocus();
      QTest::keyClick(field, Qt::Key_End);
      QTest::keyClick(field, Qt::Key_Backspace);
      QTest::keyClicks(field, "7");
    }
    for (auto* box : page->findChildren<QCheckBox*>()) {
      if (changed != nullptr || !box->isVisible() || !box->isEnabled()) continue;
      changed = box;
      QTest::keyClick(box, Qt::Key_Space);
    }
    if (changed == nullptr) {
      // Forms of lists, keys and cells: the first thing that a key turns over.
      for (const char* name : {"TenantMatrix", "ListView2", "lsGroupHunt(0)"}) {
        auto* widget = page->findChild<QWidget*>(QString::fromLatin1(name));
        if (widget == nullptr || changed != nullptr) continue;
        changed = widget;
        QTest::keyClick(widget, Qt::Key_Space);
        if (auto* list = qobject_cast<QListWidget*>(widget)) list->item(0)->setSelected(true);
        if (auto* remove = page->findChild<QPushButton*>(QStringLiteral("cmdDel")))
          QTest::keyClick(remove, Qt::Key_Space);
      }
    }
    if (changed == nullptr && page->findChild<QWidget*>(QStringLiteral("lblNum(0)")) != nullptr) {
      changed = page->findChild<QWidget*>(QStringLiteral("lblNum(19)"));
      QTest::keyClick(changed, Qt::Key_Space);
      ASSERT_NE(page->form().dialog(), nullptr);
      QDialog* dialog = nullptr;
      for (auto* open : desk.bench.window->findChildren<QDialog*>()) {
        if (open->findChild<QWidget*>(QStringLiteral("Option1(2)")) != nullptr) dialog = open;
      }
      ASSERT_NE(dialog, nullptr);
      QTest::keyClick(dialog->findChild<QWidget*>(QStringLiteral("Option1(2)")), Qt::Key_Space);
      for (auto* field : dialog->findChildren<QLineEdit*>()) {
        if (field->isVisible() && field->isEnabled()) QTest::keyClicks(field, "77");
      }
      QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("cmdOK")), Qt::LeftButton);
      QTest::qWait(1);
      EXPECT_EQ(page->form().dialog(), nullptr);
    }
    ASSERT_NE(changed, nullptr);
    EXPECT_TRUE(desk.bench.state.DataChanged);
    Script answers({AnswerBox(QMessageBox::Yes)});  // a repeat is asked about
    desk.Click("cmdOK");
    const std::string after = desk.bench.store.Snapshot(desk.bench.project)->bytes();
    EXPECT_NE(after, before);
    EXPECT_TRUE(desk.bench.state.ActiveFormName.empty());
    desk.bench.ClickCommand(editor->key);
    EXPECT_EQ(desk.bench.state.ActiveFormName, editor->name.recorded);
    EXPECT_FALSE(desk.bench.state.DataChanged);
    desk.Click("cmdCancel");
    EXPECT_EQ(desk.bench.store.Snapshot(desk.bench.project)->bytes(), after);
  }
}

}  // namespace
}  // namespace tarvok::test
