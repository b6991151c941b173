#include <fstream>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMenu>
#include <QScrollBar>

#include "project/difference.h"
#include "tests/desktop/editor_desk.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(EditorPage, CellsAreTypedPastedUndoneAndSaved) {
  EditorDesk desk;
  desk.ClickCommand("linktrunk");
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
  QTest::keyClick(desk.Table(), Qt::Key_F2);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), desk.Table());
  QTest::keyClicks(desk.Table(), "99");
  QTest::keyClick(desk.Table(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(desk.state.data_changed);
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Table(), nullptr);
  desk.ExpectKeys("[LinkTrunk]\n03=123\n04=45\n05=7\n06=\n07=8\n09=\n");
  EXPECT_FALSE(desk.history.Versions(desk.project).value().empty());
}

TEST(EditorPage, AClickOnAnotherCommandSavesTheOpenField) {
  EditorDesk desk;
  desk.ClickCommand("linktrunk");
  desk.GoTo(4, 1);
  QTest::keyClicks(desk.Table(), "7");
  QTest::keyClick(desk.Table(), Qt::Key_F2);
  auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(field, nullptr);
  QTest::keyClicks(field, "5x5");
  const QPointer<EditorPage> left = desk.Find<EditorPage>("frmLinkTrunk");
  desk.ClickCommand("dialphone");
  EXPECT_EQ(desk.state.active_form_name, "frmDialPhone");
  EXPECT_EQ(desk.Find<EditorPage>("frmLinkTrunk"), nullptr);
  EXPECT_TRUE(QTest::qWaitFor([&] { return left == nullptr; }));
  desk.ExpectKeys("[LinkTrunk]\n04=755\n");  // typed after the old text
}

TEST(EditorPage, EmptyingAFieldAlsoClearsAValueThatItsCellCannotShow) {
  EditorDesk desk;
  ASSERT_TRUE(
      desk.store.SetIniValue(desk.project, "BOSS", "05", "499|499").ok());  // a port that does not exist
  desk.ClickCommand("boss");
  ASSERT_NE(desk.Table(), nullptr);
  for (const int column : {1, 2}) {
    desk.GoTo(5, column);
    QTest::keyClick(desk.Table(), Qt::Key_F2);
    QWidget* field = QApplication::focusWidget();
    ASSERT_NE(field, desk.Table());
    if (column == 2) QTest::keyClicks(field, "1");
    if (column == 2) QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClick(field, Qt::Key_Return);
  }
  QTest::qWait(1);
  EXPECT_TRUE(desk.state.data_changed);
  desk.Click("cmdOK");
  desk.ExpectKeys("[BOSS]\n05=499|F\n");
}

TEST(EditorPage, AClosingFormDoesNotCloseTheNextOne) {
  EditorDesk desk;
  desk.ClickCommand("linktrunk");
  desk.Find<QPushButton>("cmdOK")->click();  // deletes it after this event
  desk.ClickCommand("dialphone");
  QTest::qWait(20);
  EXPECT_EQ(desk.state.active_form_name, "frmDialPhone");
}

TEST(EditorPage, CancelAsksAndTheTableMenuBelongsToTheOpenPage) {
  EditorDesk desk;
  auto* menu = desk.Find<QMenu>("mnu_edit");
  EXPECT_FALSE(menu->isEnabled());
  desk.ClickCommand("linktrunk");
  EXPECT_TRUE(menu->isEnabled());
  menu->popup({});
  EXPECT_EQ(menu->actions(), desk.Find<EditorPage>("frmLinkTrunk")->actions());
  menu->close();
  desk.GoTo(1, 1);
  QTest::keyClick(desk.Table(), Qt::Key_Delete);
  std::vector<std::string> texts;
  for (const auto& look_away : {std::function([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
                                std::function([](QWidget& box) { box.close(); })}) {
    Script back({In("box", look_away)});
    desk.Click("cmdCancel");
    EXPECT_TRUE(back.finished());
    EXPECT_TRUE(menu->isEnabled());
  }
  Script answer({AnswerBox(QMessageBox::No, &texts)});
  desk.Click("cmdCancel");
  EXPECT_TRUE(answer.finished());
  EXPECT_THAT(texts, ElementsAre(testing::StartsWith("Data was change if you closed this windows")));
  EXPECT_FALSE(menu->isEnabled());
  desk.ExpectKeys("[LinkTrunk]\n01=006990009000\n");
}

TEST(EditorPage, CtrlSSavesUnlessTheProjectIsGone) {
  EditorDesk desk;
  const std::string away = desk.project + ".away";
  desk.ClickCommand("linktrunk");
  EXPECT_FALSE(desk.Letters().isEnabled());
  desk.GoTo(1, 1);
  QTest::keyClick(desk.Table(), Qt::Key_Delete);
  std::filesystem::rename(desk.project, away);
  std::vector<std::string> texts;
  Script script({AnswerBox(QMessageBox::Ok, &texts)});
  QTest::keyClick(desk.Table(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(script.finished());
  EXPECT_THAT(texts, ElementsAre(HasSubstr("is missing")));
  EXPECT_TRUE(desk.state.data_changed && !std::filesystem::exists(desk.project));
  std::filesystem::rename(away, desk.project);
  QApplication::setActiveWindow(desk.window.get());  // the box had taken the activation
  QTest::keyClick(desk.Table(), Qt::Key_S, Qt::ControlModifier);
  QTest::qWait(1);
  EXPECT_EQ(desk.state.active_form_name, "");
  EXPECT_TRUE(desk.Letters().isEnabled());
  desk.ExpectKeys("[LinkTrunk]\n01=\n");
}

TEST(EditorPage, RowsAreFilteredReplacedAndJumpToTheirReferences) {
  EditorDesk desk;
  desk.ClickCommand("ext");
  QTest::keyClick(desk.Table(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  auto* filter = desk.Find<QLineEdit>("Filter");
  QTest::keyClicks(filter, "room 10");
  EXPECT_EQ(desk.Find<QLabel>("RowsShown")->text(), QStringLiteral("9 of 500 rows"));
  EXPECT_TRUE(desk.Table()->isRowHidden(0));
  filter->clear();
  EXPECT_FALSE(desk.Table()->isRowHidden(0));

  Script replace(
      {TypeIn("Replace", "FindText", "Room 10"), TypeIn("Replace", "ReplaceText", "Suite 10"), [] {
         auto* dialog = Modal("Replace");
         QTest::keyClick(dialog->findChild<QLineEdit*>(QStringLiteral("FindText")), Qt::Key_Return);  // finds
         auto* by = dialog->findChild<QLineEdit*>(QStringLiteral("ReplaceText"));
         const auto replace_all = [&](const QString& text) {
           by->setText(text);
           for (auto* button : dialog->findChildren<QPushButton*>()) {
             if (button->text() == QStringLiteral("Replace &All")) button->click();
           }
           return dialog->findChild<QLabel*>(QStringLiteral("Result"))->text();
         };
         EXPECT_TRUE(
             replace_all(QStringLiteral("\u0639 10")).startsWith(QStringLiteral("Nothing was replaced")));
         EXPECT_EQ(replace_all(QStringLiteral("Suite 10")), QStringLiteral("9 cells changed"));
         qobject_cast<QDialog*>(dialog)->reject();
         return true;
       }});
  QTest::keyClick(desk.Table(), Qt::Key_H, Qt::ControlModifier);
  EXPECT_TRUE(replace.finished());
  EXPECT_EQ(desk.Cell(2, 5), QStringLiteral("Suite 101"));

  desk.GoTo(2, 1);
  desk.window->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(desk.window.get()));
  desk.Table()->setFocus();
  Script go({In("UsedBy", [](QWidget& dialog) {
    auto* list = dialog.findChild<QListWidget*>(QStringLiteral("UsedByList"));
    EXPECT_EQ(list->count(), 1);
    QTest::keyClick(list, Qt::Key_Return);
  })});
  QTest::keyClick(desk.Table(), Qt::Key_U, Qt::ControlModifier);
  EXPECT_TRUE(go.finished());
  QTest::qWait(1);
  EXPECT_EQ(desk.state.active_form_name, "frmPortDef");
  EXPECT_EQ(desk.Table()->currentIndex().row(), 82);  // room 101 is on card 8, channel 1
  desk.ExpectKeys("[Name]\n002=Suite 101\n");         // leaving a form saves it

  filter = desk.Find<QLineEdit>("Filter");
  filter->setText(QStringLiteral("no row has this"));
  desk.Find<EditorPage>("frmPortSys_Def")->GoTo({"Port_Def", "010", 10, 0});
  EXPECT_EQ(filter->text(), QString());
  EXPECT_EQ(desk.Table()->currentIndex().row(), 9);
  EXPECT_FALSE(desk.Table()->isRowHidden(9));
}

/** The visible rows, from 0. */
std::vector<int> ShownOf(const QTableView& table) {
  std::vector<int> rows;
  for (int row = 0; row < table.model()->rowCount(); ++row) {
    if (!table.isRowHidden(row)) rows.push_back(row);
  }
  return rows;
}

TEST(EditorPage, NoCommandChangesRowsHiddenByAFilter) {
  EditorDesk desk;
  desk.ClickCommand("ext");
  QTableView& table = *desk.Table();
  auto* filter = desk.Find<QLineEdit>("Filter");
  const QStringList numbers = desk.Column(1);
  desk.GoTo(5, 1);
  filter->setFocus();
  QTest::keyClicks(filter, "no row has this");
  QTest::keyClick(filter, Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_FALSE(desk.state.data_changed) << "the cell that is not seen";
  EXPECT_EQ(QApplication::focusWidget(), &table) << "keys go on in the table";
  filter->setText(QStringLiteral("9"));
  const std::vector<int> shown = ShownOf(table);
  ASSERT_GT(shown.size(), 5U);
  EXPECT_EQ(table.currentIndex().row(), shown[0]);
  for (const auto& [row, key] : {std::pair(shown[0], Qt::NoModifier), {shown[2], Qt::ShiftModifier}}) {
    QTest::mouseClick(table.viewport(), Qt::LeftButton, key,
                      table.visualRect(table.model()->index(row, 0)).center());
  }
  QTest::keyClick(&table, Qt::Key_Minus, Qt::ControlModifier);
  QStringList left = numbers;
  for (const int i : {2, 1, 0}) left.removeAt(shown[static_cast<std::size_t>(i)]);
  EXPECT_EQ(desk.Column(1).mid(0, left.size()), left);
  std::vector<int> moved(shown.begin() + 3, shown.end());
  for (int& row : moved) row -= 3;
  EXPECT_EQ(ShownOf(table), moved) << "the filter follows the rows";
  QTest::keyClick(&table, Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), desk.Find<QPushButton>("cmdTopRow"));
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_F2);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), desk.Find<QPushButton>("cmdTopRow"));
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), filter);
}

TEST(EditorPage, LettersThatTheCodePageLacksAreReported) {
  EditorDesk desk;
  desk.ClickCommand("ext");
  const QStringList before = desk.Column(5);
  const auto import = [&](const char* bytes, QMessageBox::StandardButton answer) {
    std::ofstream(desk.folder / "names.csv", std::ios::binary) << bytes;
    std::vector<std::string> texts;
    const auto in_folder = [&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (dialog != nullptr) dialog->setDirectory(QString::fromStdString(desk.folder.string()));
      return dialog != nullptr;
    };
    std::vector<Script::Step> steps = {in_folder, ChooseFile(QStringLiteral("names.csv")),
                                       AnswerBox(answer, &texts)};
    const bool wrong = std::string_view(bytes).find("\xD8\xB9") != std::string_view::npos;
    if (wrong) steps.push_back(AnswerBox(QMessageBox::Ok, &texts));
    const Script script(std::move(steps));
    desk.Find<QAction>("mnu_import")->trigger();
    EXPECT_TRUE(script.finished());
    return texts;
  };
  EXPECT_THAT(import("Name\nA\nB\n", QMessageBox::No), ElementsAre(HasSubstr(" rows by 2 rows ")));
  EXPECT_THAT(import("Name\nA\n\xD8\xB9\xD9\x84\xDB\x8C\n", QMessageBox::Yes),
              ElementsAre(testing::_, HasSubstr("line 3, column \"Name\": \"\xD8\xB9")));
  EXPECT_EQ(desk.Column(5), before);
  EXPECT_FALSE(desk.state.data_changed);
  import("Name\nM\xFCller\nCaf\xE9\n", QMessageBox::Yes);
  EXPECT_EQ(desk.Column(5).mid(0, 2).join(u' '), QStringLiteral("M\u00FCller Caf\u00E9"));
  import("Name\nM\xC3\xBCller\n", QMessageBox::Yes);
  EXPECT_EQ(desk.Column(5).mid(0, 2).join(u' '), QStringLiteral("M\u00FCller "));

  desk.GoTo(2, 5);
  QApplication::clipboard()->setText(QStringLiteral("7\u0639\u0644\u06CC"));
  desk.Find<QAction>("mnu_paste")->trigger();
  EXPECT_EQ(desk.Column(5)[1], QStringLiteral("7"));
  EXPECT_EQ(QApplication::clipboard()->text().size(), 4) << "a paste leaves the clipboard";
  EXPECT_TRUE(desk.Find<QLabel>("Refused")->text().contains(QStringLiteral("\u0639\u0644\u06CC")));
}

TEST(EditorPage, AStepInThePathOfACallOpensItsEditor) {
  EditorDesk desk;
  desk.ClickCommand("routemap");
  desk.GoTo(8, 1);
  auto* path = desk.Find<QWidget>("CallPath");
  EXPECT_EQ(path->accessibleName().toStdString(), "Path of the call: Digits 011X, timeout No Limit");
  QTest::keyClick(path, Qt::Key_Right);
  EXPECT_EQ(path->accessibleName().toStdString(), "Path of the call: List 1");
  QTest::keyClick(desk.Table(), Qt::Key_7);
  EXPECT_EQ(path->accessibleName().toStdString(), "Path of the call: Digits 7, timeout No Limit");
  EXPECT_EQ(desk.Column(1)[7], QStringLiteral("7"));
  QTest::keyClick(path, Qt::Key_Right);
  QTest::keyClick(path, Qt::Key_Return);
  QTest::qWait(1);
  EXPECT_EQ(desk.state.active_form_name, "frmRoute");
  auto* tree = desk.Find<CommandTree>("CommandTree");
  const auto current = [&] { return tree->currentItem()->text(0).toStdString(); };
  EXPECT_EQ(current(), "14 - Route List");
  QApplication::setKeyboardInputInterval(60'000);
  QTest::keyClicks(tree, "11");
  EXPECT_EQ(current(), "11 - Incoming List");
}

TEST(EditorPage, MouseAndKeysToggleTenantsInTheWholeMatrixAndInAPart) {
  EditorDesk desk;
  desk.ClickCommand("tenan");
  auto* matrix = desk.Find<QWidget>("TenantMatrix");
  for (const QSize size : {QSize(1240, 800), QSize(760, 460)}) {
    desk.window->resize(size);
    QTest::qWait(20);
    auto* page = desk.Find<EditorPage>("frmTenan");
    auto* cell = page->form().Find<CheckBox>({"cell", 1, 2});
    const bool before = cell->on;
    for (const char* bar : {"HScroll1", "VScroll1"})
      EXPECT_EQ(desk.Find<QScrollBar>(bar)->isVisible(), size.width() < 1000);
    matrix->setFocus();
    const auto press = [&](Qt::Key key, int times) {
      for (int i = 0; i < times; ++i) QTest::keyClick(matrix, key);
    };
    press(Qt::Key_Left, 40);
    press(Qt::Key_Up, 40);
    press(Qt::Key_Right, 1);
    press(Qt::Key_Space, 1);
    EXPECT_NE(cell->on, before);
    const QImage current = matrix->grab().toImage();
    matrix->clearFocus();
    EXPECT_NE(matrix->grab().toImage(), current) << "the current cell has a frame";
    matrix->setFocus();
    EXPECT_TRUE(matrix->accessibleName().startsWith(QStringLiteral("tenant 1 ")));
    press(Qt::Key_Right, 40);
    press(Qt::Key_Space, 1);
    EXPECT_FALSE(page->form().Find<CheckBox>({"cell", 1, 32})->on == (size.width() > 1000));
  }
}

/** A header sets the 16 cells of its block on the first click and clears them on the second, in a window with
 * one block and in one with four. */
TEST(EditorPage, ATenantHeaderTogglesSixteenCellsInAnyWindow) {
  for (const bool wide : {true, false}) {
    SCOPED_TRACE(wide);
    EditorDesk desk;
    desk.ClickCommand("tenan");
    desk.window->resize(wide ? QSize(1240, 800) : QSize(760, 460));
    QTest::qWait(20);
    desk.Click("cmdClearAll");
    auto* matrix = desk.Find<QWidget>("TenantMatrix");
    auto* page = desk.Find<EditorPage>("frmTenan");
    const auto on = [&] {
      std::vector<std::pair<int, int>> cells;
      for (int row = 1; row <= 32; ++row) {
        for (int column = 1; column <= 32; ++column) {
          if (page->form().Find<CheckBox>({"cell", row, column})->on) cells.emplace_back(row, column);
        }
      }
      return cells;
    };
    const int room = std::min(matrix->width() - 8, matrix->height() - 30);
    const int cell = wide ? room / 34 : std::max(15, room / 17);
    const auto click = [&](int row, int column) {  // in cells, headers included
      QTest::mouseClick(matrix, Qt::LeftButton, {}, QPoint(column, row) * cell + QPoint(cell / 2, cell / 2));
    };
    struct Head {
      int at_row, at_column;                   // in cells, headers included
      int row, column, last_row, last_column;  // the cells that it toggles
    };
    std::vector<Head> heads = {{2, 0, 2, 1, 2, 16}, {0, 16, 1, 16, 16, 16}};
    if (wide)
      heads.insert(heads.end(), {{2, 17, 2, 17, 2, 32}, {18, 0, 17, 1, 17, 16}, {17, 33, 17, 32, 32, 32}});
    for (const Head& head : heads) {
      SCOPED_TRACE(std::to_string(head.at_row) + " " + std::to_string(head.at_column));
      click(head.at_row, head.at_column);
      ASSERT_EQ(on().size(), 16U);
      EXPECT_EQ(on().front(), std::pair(head.row, head.column));
      EXPECT_EQ(on().back(), std::pair(head.last_row, head.last_column));
      click(head.at_row, head.at_column);
      EXPECT_THAT(on(), IsEmpty());
    }
  }
}

TEST(EditorPage, AKeySelectsTheFirstListEntryThatBeginsWithIt) {
  EditorDesk desk;
  desk.ClickCommand("routemap");
  const std::tuple<int, const char*, const char*> cases[] = {
      {2, "d", "DID Ext"}, {2, "x", ""}, {3, "l", "List 1"}, {3, "e", "Extension"}};
  for (const auto& [column, keys, entry] : cases) {
    desk.GoTo(150, column);
    QTest::keyClicks(desk.Table(), QString::fromLatin1(keys));
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(QApplication::activePopupWidget()->focusWidget(), Qt::Key_Return);
    QTest::qWait(1);
    EXPECT_EQ(desk.Cell(150, column).toStdString(), entry) << keys;
    desk.GoTo(150, column);
    QTest::keyClick(desk.Table(), Qt::Key_Delete);
  }
}

TEST(EditorPage, TwoWindowsOnOneProjectKeepEachOthersKeys) {
  EditorDesk first;
  EditorDesk second(first.project);
  const IniText before(first.store.Snapshot(first.project)->bytes());
  first.ClickCommand("linktrunk");
  first.GoTo(7, 1);
  QTest::keyClicks(first.Table(), "123");
  second.ClickCommand("dialphone");
  second.GoTo(9, 1);
  QTest::keyClicks(second.Table(), "77");
  first.Click("cmdOK");
  std::vector<std::string> texts;
  std::vector<std::string> lines;
  const auto look = [&](QWidget& dialog) {
    const auto* list = dialog.findChild<QListWidget*>(QStringLiteral("Differences"));
    for (int i = 0; i < list->count(); ++i) lines.push_back(list->item(i)->text().toStdString());
    dialog.close();
  };
  const auto no_is_what_enter_takes = [](QWidget& window) {
    const auto& box = dynamic_cast<QMessageBox&>(window);
    EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
  };
  Script answer({ClickIn("box", "cmdChanges"), In("WhatChanged", look), In("box", no_is_what_enter_takes),
                 AnswerBox(QMessageBox::Yes, &texts)});
  second.Click("cmdOK");
  EXPECT_TRUE(answer.finished());
  EXPECT_THAT(texts, ElementsAre(HasSubstr("changed by another program")));
  EXPECT_THAT(lines, ElementsAre(testing::AllOf(HasSubstr("Link Trunk 07"), HasSubstr("123"))));
  std::vector<std::string> changed;
  for (const Difference& each : CompareProjects(before, *first.store.Snapshot(first.project)))
    changed.push_back(each.row + ": " + each.after);
  EXPECT_THAT(changed, ElementsAre("Link Trunk 07: 123", "Key Dial Phone 09: 77"));
  for (const auto& [desk, command, row, number] :
       {std::tuple(&second, "linktrunk", 7, "123"), std::tuple(&first, "dialphone", 9, "77")}) {
    desk->ClickCommand(command);
    EXPECT_EQ(desk->Cell(row, 1), QString::fromLatin1(number));
  }
}

}  // namespace
}  // namespace tarvok::test
