// A command acts on the cells that are shown as selected, however they were selected.

#include <algorithm>
#include <random>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QWindow>

#include "editing/table_operations.h"
#include "tests/desktop/editor_desk.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

constexpr int kRows = 30;  // filled rows of the accounts' table
constexpr int kColumns = 6;

using Cells = std::vector<QStringList>;

/** Accounts 1 to 30, in which all cells differ, with the user's mouse and keyboard. */
class AccountDesk : public EditorDesk {
 public:
  AccountDesk() {
    window->resize(1100, 700);
    ClickCommand("account");
    std::string block;
    for (int row = 1; row <= kRows; ++row) {
      const std::string number = std::to_string(row % 16 + 1);
      block += std::to_string(1000 + row) + '\t' + std::to_string(2000 + row) + "\t\t" + number + '\t' +
               number + '\t' + std::to_string(3000 + row) + '\n';
    }
    auto* page = Find<EditorPage>("frmAccount");
    EXPECT_THAT(PasteCells(*page->form().table(), block), IsEmpty());
    page->form().Settle();
    QTest::qWait(1);
  }

  /** Makes all columns and the first rows visible. */
  void LayOutTable(int column_width = 110) {
    for (int column = 0; column < kColumns; ++column) Table()->setColumnWidth(column, column_width);
    Table()->scrollTo(Table()->model()->index(0, 0));
  }
  /** The centre of a cell; row 0 is the head of the column, column 0 the head of the row. */
  QPoint At(int row, int column) {
    QHeaderView* rows = Table()->verticalHeader();
    QHeaderView* columns = Table()->horizontalHeader();
    if (column == 0) return InWindow(rows->viewport(), {5, rows->sectionViewportPosition(row - 1) + 5});
    if (row == 0)
      return InWindow(columns->viewport(), {columns->sectionViewportPosition(column - 1) + 20, 5});
    return InWindow(Table()->viewport(),
                    Table()->visualRect(Table()->model()->index(row - 1, column - 1)).center());
  }
  void Press(QPoint at, Qt::KeyboardModifiers keys = {}) {
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, keys, at);
  }
  void Move(QPoint at) { QTest::mouseMove(window->windowHandle(), at); }
  void Release(QPoint at, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, keys, at);
  }
  void Keys(Qt::Key key, int times = 1, Qt::KeyboardModifiers with = {}) {
    for (int i = 0; i < times; ++i) QTest::keyClick(Table(), key, with);
  }

  Cells Texts() {
    Cells texts;
    for (int row = 1; row <= Table()->model()->rowCount(); ++row) {
      texts.emplace_back();
      for (int column = 1; column <= kColumns; ++column) texts.back() += Cell(row, column);
    }
    return texts;
  }
  /** Top, left, bottom and right of the cells shown as selected, from 1; they must fill the rectangle. */
  std::vector<int> Shown() {
    int top = 9999;
    int left = 9999;
    int bottom = 0;
    int right = 0;
    const QModelIndexList shown = Table()->selectionModel()->selectedIndexes();
    for (const QModelIndex& cell : shown) {
      top = std::min(top, cell.row() + 1);
      left = std::min(left, cell.column() + 1);
      bottom = std::max(bottom, cell.row() + 1);
      right = std::max(right, cell.column() + 1);
    }
    EXPECT_EQ(shown.size(), (bottom - top + 1) * (right - left + 1));
    return {top, left, bottom, right};
  }

 private:
  QPoint InWindow(QWidget* widget, QPoint at) { return widget->mapTo(window.get(), at); }
};

using Step = std::function<void(AccountDesk&)>;

/** Drags the mouse through these cells. */
Step Drag(std::vector<std::pair<int, int>> way, Qt::KeyboardModifiers with = {}) {
  return [=](AccountDesk& desk) {
    const auto at = [&](std::size_t i) { return desk.At(way[i].first, way[i].second); };
    desk.Press(at(0), with);
    for (std::size_t i = 1; i < way.size(); ++i) desk.Move(at(i));
    desk.Release(at(way.size() - 1), with);
  };
}
Step Click(int row, int column, Qt::KeyboardModifiers with = {}) {
  return Drag({{row, column}}, with);
}
Step Keys(Qt::Key key, int times = 1, Qt::KeyboardModifiers with = {}) {
  return [=](AccountDesk& desk) { desk.Keys(key, times, with); };
}
void MakeColumnsWide(AccountDesk& desk) {
  desk.LayOutTable(320);
}
void OpenMenu(AccountDesk& desk) {
  QTimer closes_menu;
  QObject::connect(&closes_menu, &QTimer::timeout, [] {
    if (QWidget* menu = QApplication::activePopupWidget(); menu != nullptr) menu->close();
  });
  closes_menu.start(1);
  QTest::mousePress(desk.window->windowHandle(), Qt::RightButton, {}, desk.At(4, 1));
  QTest::mouseRelease(desk.window->windowHandle(), Qt::RightButton, {}, desk.At(4, 1));
  QApplication::setActiveWindow(desk.window.get());  // the menu had taken the activation
}

constexpr auto kShift = Qt::ShiftModifier;
constexpr auto kCtrl = Qt::ControlModifier;

struct Gesture {
  const char* what;
  std::vector<Step> steps;
  std::vector<int> shown;  // top, left, bottom, right
};

const Gesture kGestures[] = {
    {"down", {Drag({{1, 1}, {2, 1}, {3, 1}})}, {1, 1, 3, 1}},
    {"at once", {Drag({{2, 2}, {6, 5}})}, {2, 2, 6, 5}},
    {"right and back", {Drag({{2, 1}, {2, 5}, {2, 2}})}, {2, 1, 2, 2}},
    {"up and back", {Drag({{7, 4}, {3, 2}, {5, 3}})}, {5, 3, 7, 4}},
    {"over the start", {Drag({{5, 2}, {7, 4}, {3, 1}})}, {3, 1, 5, 2}},
    {"to the start", {Drag({{5, 2}, {7, 4}, {5, 2}})}, {5, 2, 5, 2}},
    {"Shift and a click", {Click(3, 2), Click(6, 4, kShift)}, {3, 2, 6, 4}},
    {"Shift and a click from where the keys went",
     {Click(1, 1), Keys(Qt::Key_Down, 4), Keys(Qt::Key_Right), Click(7, 4, kShift)},
     {5, 2, 7, 4}},
    {"Shift and a drag from where the keys went",
     {Click(1, 1), Keys(Qt::Key_Down, 4), Drag({{7, 2}, {8, 2}, {8, 3}}, kShift)},
     {5, 1, 8, 3}},
    {"Shift and arrows",
     {Click(2, 1), Keys(Qt::Key_Right, 3), Keys(Qt::Key_Down, 3, kShift), Keys(Qt::Key_Left, 1, kShift),
      Keys(Qt::Key_Up, 1, kShift)},
     {2, 3, 4, 4}},
    {"Shift and arrows after typing and Return",
     {Click(2, 2), Keys(Qt::Key_Backspace), Keys(Qt::Key_Return, 3), Keys(Qt::Key_Up, 2, kShift)},
     {3, 2, 5, 2}},
    {"Shift and arrows from a cell that was just typed",
     {Click(5, 1), Keys(Qt::Key_Home, 1, kCtrl), Keys(Qt::Key_Right), Keys(Qt::Key_1),
      Keys(Qt::Key_Down, 5, kShift)},
     {1, 2, 6, 2}},
    {"Shift and arrows after a drag", {Drag({{4, 2}, {6, 3}}), Keys(Qt::Key_Down, 2, kShift)}, {4, 2, 8, 3}},
    {"Shift, Ctrl and Home",
     {Click(1, 1), Keys(Qt::Key_Down, 2), Keys(Qt::Key_Home, 1, kShift | kCtrl)},
     {1, 1, 3, 1}},
    {"Shift and End",
     {Click(9, 1), Keys(Qt::Key_Right, 2), Keys(Qt::Key_End, 1, kShift)},
     {9, 3, 9, kColumns}},
    {"Shift, Ctrl and arrows",
     {Click(9, 1), Keys(Qt::Key_Up, 2), Keys(Qt::Key_Down, 2, kShift | kCtrl)},
     {7, 1, 9, 1}},
    {"a row's head", {Click(4, 0)}, {4, 1, 4, kColumns}},
    {"rows' heads", {Drag({{6, 0}, {5, 0}, {3, 0}, {4, 0}})}, {4, 1, 6, kColumns}},
    {"Shift and a row's head", {Click(4, 0), Click(7, 0, kShift)}, {4, 1, 7, kColumns}},
    {"a row's head in a table moved aside",
     {MakeColumnsWide, Click(5, 1), Keys(Qt::Key_End), Click(5, 0)},
     {5, 1, 5, kColumns}},
    {"Ctrl and clicks", {Click(3, 1), Click(5, 2, kCtrl)}, {3, 1, 5, 2}},
    {"the other button on what is selected", {Drag({{3, 1}, {6, 2}}), OpenMenu}, {3, 1, 6, 2}},
};

/** The expected table: the text of each selected cell replaced. */
Cells Replaced(Cells cells, const std::vector<int>& shown, const std::function<QString(int column)>& by) {
  for (int row = shown[0]; row <= shown[2]; ++row) {
    for (int column = shown[1]; column <= shown[3]; ++column)
      cells[static_cast<std::size_t>(row) - 1][column - 1] = by(column);
  }
  return cells;
}

/** The cells in which two tables differ; "" for none. */
std::string Unlike(const Cells& found, const Cells& wanted) {
  std::string unlike = found.size() == wanted.size() ? "" : "another number of rows";
  for (std::size_t row = 0; row < std::min(found.size(), wanted.size()); ++row) {
    for (int column = 0; column < kColumns; ++column) {
      const QString& text = found[row][column];
      if (text != wanted[row][column])
        unlike += " (" + std::to_string(row + 1) + ", " + std::to_string(column + 1) + "): \"" +
                  text.toStdString() + "\"";
    }
  }
  return unlike;
}

QString TextOf(const Cells& cells, const std::vector<int>& shown) {
  QStringList lines;
  for (int row = shown[0]; row <= shown[2]; ++row)
    lines += cells[static_cast<std::size_t>(row) - 1].mid(shown[1] - 1, shown[3] - shown[1] + 1).join(u'\t');
  return lines.join(QStringLiteral("\r\n"));
}

TEST(TableSelection, ACommandChangesExactlyTheCellsShownAsSelected) {
  AccountDesk desk;
  const Cells before = desk.Texts();
  const auto with_ctrl = [&](Qt::Key key) { desk.Keys(key, 1, Qt::ControlModifier); };
  for (const Gesture& gesture : kGestures) {
    SCOPED_TRACE(gesture.what);
    const std::vector<int>& shown = gesture.shown;
    const auto blank = [](int) { return QString(); };
    const auto expect = [&](const char* command, Qt::Key key, bool ctrl,
                            const std::function<Cells(Cells)>& left) {
      SCOPED_TRACE(command);
      desk.LayOutTable();
      for (const Step& step : gesture.steps) step(desk);
      EXPECT_EQ(desk.Shown(), shown);
      const Cells now = desk.Texts();  // the gesture itself may type
      desk.Keys(key, 1, ctrl ? Qt::ControlModifier : Qt::NoModifier);
      EXPECT_EQ(Unlike(desk.Texts(), left(now)), "");
      for (int steps = 0; steps < 3 && desk.Texts() != before; ++steps) with_ctrl(Qt::Key_Z);
      ASSERT_EQ(Unlike(desk.Texts(), before), "");
    };
    const auto copied = [&](const Cells& cells) {
      EXPECT_EQ(QApplication::clipboard()->text().toStdString(), TextOf(cells, shown).toStdString());
      return cells;
    };
    if (HasFatalFailure()) return;
    expect("Delete", Qt::Key_Delete, false, [&](const Cells& now) { return Replaced(now, shown, blank); });
    expect("Copy", Qt::Key_C, true, copied);
    expect("Cut", Qt::Key_X, true, [&](const Cells& now) { return Replaced(copied(now), shown, blank); });
    expect("Fill Down", Qt::Key_D, true, [&](const Cells& now) {
      const QStringList first = now[static_cast<std::size_t>(shown[0]) - 1];
      return Replaced(now, shown, [&](int column) { return first[column - 1]; });
    });
    expect("Delete Row", Qt::Key_Minus, true, [&](Cells now) {
      const std::size_t rows = now.size();
      now.erase(now.begin() + shown[0] - 1, now.begin() + shown[2]);
      now.resize(rows, QStringList(QList<QString>(kColumns)));
      return now;
    });
  }
}

TEST(TableSelection, OneKeySelectsEveryCell) {
  AccountDesk desk;
  Click(2, 2)(desk);
  desk.Keys(Qt::Key_A, 1, Qt::ControlModifier);
  EXPECT_EQ(desk.Shown(), (std::vector<int>{1, 1, desk.Table()->model()->rowCount(), kColumns}));
  desk.Keys(Qt::Key_Delete);
  for (const QStringList& row : desk.Texts()) EXPECT_EQ(row.join(QString()), QString());
}

TEST(TableSelection, AHeaderSelectsItsColumnWhereverTheTableIsScrolled) {
  AccountDesk desk;
  Cells wanted = desk.Texts();
  for (QStringList& row : wanted) row[1].clear();
  desk.Table()->scrollToBottom();
  Click(0, 2)(desk);
  EXPECT_EQ(desk.Shown(), (std::vector<int>{1, 2, desk.Table()->model()->rowCount(), 2}));
  desk.Keys(Qt::Key_Delete);
  EXPECT_EQ(Unlike(desk.Texts(), wanted), "");
}

/** After any press, drag or key the editor's selection is the one that is shown. */
TEST(TableSelection, TheEditorFollowsAnySequenceOfEvents) {
  constexpr Qt::Key kKeys[] = {Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,  Qt::Key_Right,
                               Qt::Key_Home,   Qt::Key_End,      Qt::Key_Tab,   Qt::Key_PageUp,
                               Qt::Key_Return, Qt::Key_PageDown, Qt::Key_Space, Qt::Key_7,
                               Qt::Key_Delete, Qt::Key_Backspace};
  constexpr Qt::Key kWithCtrl[] = {Qt::Key_A, Qt::Key_D, Qt::Key_Z,    Qt::Key_Y,
                                   Qt::Key_X, Qt::Key_V, Qt::Key_Minus};
  constexpr Qt::KeyboardModifier kWith[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                            Qt::ControlModifier};
  AccountDesk desk;
  desk.LayOutTable();
  const TableEditor& rules = *desk.Find<EditorPage>("frmAccount")->form().table();
  std::mt19937 random(7);
  const auto any = [&](std::size_t count) { return static_cast<std::size_t>(random()) % count; };
  const auto cell = [&] {
    desk.LayOutTable();  // the clicked cells must be visible
    return desk.At(1 + static_cast<int>(any(20)), 1 + static_cast<int>(any(3)));
  };
  const auto expect_same = [&](const std::string& what) {
    const Selection& selected = rules.selection();
    EXPECT_EQ(desk.Shown(), (std::vector<int>{selected.top, selected.left, selected.bottom, selected.right}))
        << what;
    const QModelIndex current = desk.Table()->currentIndex();
    EXPECT_EQ(std::pair(current.row() + 1, current.column() + 1),
              std::pair(rules.current_row(), rules.current_column()))
        << what;
  };
  for (int step = 0; step < 400 && !HasFailure(); ++step) {
    const std::string what = "step " + std::to_string(step);
    const Qt::KeyboardModifiers with = kWith[any(std::size(kWith))];
    switch (any(5)) {
      case 0:
        desk.Press(cell(), with);
        expect_same(what + ", press");
        for (std::size_t moves = any(4); moves > 0; --moves) {
          desk.Move(cell());
          expect_same(what + ", drag");
        }
        desk.Release(cell(), with);
        break;
      case 1:
        (any(2) == 0 ? Click(2 + static_cast<int>(any(9)), 0, with)
                     : Click(0, 1 + static_cast<int>(any(2)), with))(desk);
        break;
      case 2:
        desk.Keys(kWithCtrl[any(std::size(kWithCtrl))], 1, Qt::ControlModifier);
        break;
      default:
        desk.Keys(kKeys[any(std::size(kKeys))], 1, with);
    }
    if (QWidget* list = QApplication::activePopupWidget(); list != nullptr) list->close();
    if (QApplication::focusWidget() != desk.Table()) desk.Table()->setFocus();  // a list was opened
    expect_same(what);
  }
}

}  // namespace
}  // namespace tarvok::test
