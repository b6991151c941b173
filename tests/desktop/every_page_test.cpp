// Tests of every editor's page.

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>

#include "store/field_list.h"
#include "tests/desktop/editor_desk.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

/** Types into the first column that accepts text, or chooses another list entry in the last row. */
void ChangeCell(EditorDesk& desk, const TableEditor& rules) {
  QTableView* table = desk.Table();
  int column = 1;
  while (column < rules.columns() && rules.column(column).entry != Entry::kText) ++column;
  const bool takes_text = rules.column(column).entry == Entry::kText;
  desk.GoTo(takes_text ? 1 : rules.rows(), takes_text ? column : 1);
  if (takes_text) {
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Backspace, Qt::Key_2}) QTest::keyClick(table, key);
    return;
  }
  QTest::keyClick(table, Qt::Key_F4);
  if (rules.column(1).entry == Entry::kEditList) {
    auto* combo = table->findChild<QComboBox*>();
    ASSERT_NE(combo, nullptr);
    QTest::keyClicks(combo->lineEdit(), QString::fromStdString(rules.ListOf(rules.rows(), 1).back()));
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    return;
  }
  ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  QWidget* popup = QApplication::activePopupWidget();
  QWidget* list = popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(list, key);
  QTest::qWait(1);
}

/** Makes the last key extension 77 in its dialog. */
void ChangeKey(EditorDesk& desk, EditorPage& page) {
  QTest::keyClick(page.findChild<QWidget*>(QStringLiteral("lblNum(19)")), Qt::Key_Space);
  ASSERT_NE(page.form().dialog(), nullptr);
  auto* extension = desk.Find<QWidget>("Option1(2)");
  ASSERT_NE(extension, nullptr);
  EXPECT_EQ(extension->window()->focusWidget(), desk.Find<QWidget>("txtNumber"));
  QTest::keyClick(extension, Qt::Key_Space);
  for (auto* field : extension->window()->findChildren<QLineEdit*>()) {
    if (field->isVisible() && field->isEnabled()) QTest::keyClicks(field, "77");
  }
  QTest::keyClick(extension, Qt::Key_Return);
  QTest::qWait(1);
  EXPECT_EQ(page.form().dialog(), nullptr);
}

template <typename Widget>
Widget* FirstOf(const EditorPage& page) {
  for (auto* widget : page.findChildren<Widget*>()) {
    if (widget->isVisible() && widget->isEnabled()) return widget;
  }
  return nullptr;
}

/** Changes one thing of a page with real keys: in its table, fields or check boxes, or whatever a key
 * toggles. */
void ChangeByKeys(EditorDesk& desk, EditorPage& page) {
  if (desk.Table() != nullptr) return ChangeCell(desk, *page.form().table());
  if (desk.Find<QWidget>("lblNum(19)") != nullptr) return ChangeKey(desk, page);
  if (auto* field = FirstOf<QLineEdit>(page); field != nullptr) {
    field->setFocus();
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Backspace, Qt::Key_7}) QTest::keyClick(field, key);
    return;
  }
  if (auto* box = FirstOf<QCheckBox>(page); box != nullptr) return QTest::keyClick(box, Qt::Key_Space);
  for (const char* name : {"TenantMatrix", "ListView2", "lsGroupHunt(0)"}) {
    auto* widget = desk.Find<QWidget>(name);
    if (widget == nullptr) continue;
    QTest::keyClick(widget, Qt::Key_Space);
    if (auto* list = qobject_cast<QListWidget*>(widget)) list->item(0)->setSelected(true);
    if (auto* remove = desk.Find<QPushButton>("cmdDel")) QTest::keyClick(remove, Qt::Key_Space);
    return;
  }
}

/** Counts the widgets that are shown as windows. */
class WindowCount : public QObject {
 public:
  WindowCount() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* shown, QEvent* event) override {
    if (event->type() == QEvent::Show && shown->isWidgetType() && static_cast<QWidget*>(shown)->isWindow())
      ++windows;
    return false;
  }
  int windows = 0;
};

/** The Alt letters of the window, with duplicates. */
std::string AltLetters(MainWindow& window) {
  QStringList texts;
  for (const QAction* menu : window.menuBar()->actions()) texts += menu->text();
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    if (button->isVisible()) texts += button->text();
  }
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy() != nullptr) texts += label->text();
  }
  std::string letters;
  for (const QString& text : texts) {
    const QString keys = QKeySequence::mnemonic(text).toString();
    if (!keys.isEmpty()) letters += keys.back().toLatin1();
  }
  std::sort(letters.begin(), letters.end());
  return letters;
}

TEST(EveryPage, FitsASmallWindowAndUsesEachAltLetterOnce) {
  EditorDesk desk;
  const QSize small(800, 600);
  desk.window->resize(small);
  WindowCount count;
  QScrollBar* across = desk.Find<QScrollArea>("PaneScroll")->horizontalScrollBar();
  const auto expect_each_letter_once = [&] {
    const std::string letters = AltLetters(*desk.window);
    EXPECT_EQ(std::adjacent_find(letters.begin(), letters.end()), letters.end()) << letters;
  };
  expect_each_letter_once();  // of the overview
  for (const Editor* editor : Editors()) {
    SCOPED_TRACE(editor->name.form);
    desk.ClickCommand(editor->key);
    expect_each_letter_once();
    EXPECT_EQ(count.windows, 0);
    EXPECT_EQ(across->value(), 0);
    QTest::qWait(1);
    EXPECT_EQ(desk.window->size(), small);
    across->setValue(across->maximum());
  }
}

/** Opens every editor by its command, changes one thing, saves, reopens, and finds the change. */
TEST(EveryPage, SavesAChangeMadeWithKeys) {
  EditorDesk desk;
  const auto bytes = [&] { return desk.store.Snapshot(desk.project)->bytes(); };
  for (const Editor* editor : Editors()) {
    SCOPED_TRACE(editor->name.form);
    desk.ClickCommand(editor->key);
    auto* page = desk.Find<EditorPage>(std::string(editor->name.form).c_str());
    ASSERT_NE(page, nullptr);
    const std::string before = bytes();
    ChangeByKeys(desk, *page);
    EXPECT_TRUE(desk.state.data_changed);
    Script answers({AnswerBox(QMessageBox::Yes)});  // editors ask about duplicates
    desk.Click("cmdOK");
    const std::string after = bytes();
    EXPECT_NE(after, before);
    EXPECT_TRUE(desk.state.active_form_name.empty());
    desk.ClickCommand(editor->key);
    EXPECT_EQ(desk.state.active_form_name, editor->name.recorded());
    EXPECT_FALSE(desk.state.data_changed);
    desk.Click("cmdCancel");
    EXPECT_EQ(bytes(), after);
  }
}

}  // namespace
}  // namespace tarvok::test
