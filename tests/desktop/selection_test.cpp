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
  QPoint At(int row, int column) {
    return InWindow(Table()->viewport(),
                    Table()->visualRect(Table()->model()->index(row - 1, column - 1)).center());
  }
  QPoint AtRowHead(int row) {
    QHeaderView* head = Table()->verticalHeader();
    return InWindow(head->viewport(), {5, head->sectionViewportPosition(row - 1) + 5});
  }
  QPoint AtColumnHead(int column) {
    QHeaderView* head = Table()->horizontalHeader();
    return InWindow(head->viewport(), {head->sectionViewportPosition(column - 1) + 20, 5});
  }
  void Press(QPoint at, Qt::KeyboardModifiers keys = {}) {
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, keys, at);
  }
  void Move(QPoint at) { QTest::mouseMove(window->windowHandle(), at); }
  void Release(QPoint at, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, keys, at);
  }
  void ClickAt(QPoint at, Qt::KeyboardModifiers keys = {}) {
    Press(at, keys);
    Release(at, keys);
  }
  /** Drags the mouse through the centres of these cells. */
  void Drag(const std::vector<std::pair<int, int>>& way) {
    Press(At(way.front().first, way.front().second));
    for (std::size_t i = 1; i < way.size(); ++i) Move(At(way[i].first, way[i].second));
    Release(At(way.back().first, way.back().second));
  }
  void Keys(Qt::Key key, int times = 1, Qt::KeyboardModifiers with = {}) {
    for (int i = 0; i < times; ++i) QTest::keyClick(Table(), key, with);
  }

  Cells Texts() {
    Cells texts;
    for (int row = 0; row < Table()->model()->rowCount(); ++row) {
      texts.emplace_back();
      for (int column = 0; column < kColumns; ++column)
        texts.back() += Table()->model()->index(row, column).data().toString();
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

struct Gesture {
  const char* what;
  std::function<void(AccountDesk&)> make;
  std::vector<int> shown;  // top, left, bottom, right
};

const Gesture kGestures[] = {
    {"down",
     [](AccountDesk& desk) {
       desk.Drag({{1, 1}, {2, 1}, {3, 1}});
     },
     {1, 1, 3, 1}},
    {"down and back",
     [](AccountDesk& desk) {
       desk.Drag({{1, 1}, {3, 1}, {4, 1}, {3, 1}});
     },
     {1, 1, 3, 1}},
    {"at once",
     [](AccountDesk& desk) {
       desk.Drag({{2, 2}, {6, 5}});
     },
     {2, 2, 6, 5}},
    {"to the right",
     [](AccountDesk& desk) {
       desk.Drag({{2, 1}, {2, 2}, {2, 4}});
     },
     {2, 1, 2, 4}},
    {"right and back",
     [](AccountDesk& desk) {
       desk.Drag({{2, 1}, {2, 5}, {2, 2}});
     },
     {2, 1, 2, 2}},
    {"up",
     [](AccountDesk& desk) {
       desk.Drag({{7, 4}, {6, 4}, {4, 4}});
     },
     {4, 4, 7, 4}},
    {"up and back",
     [](AccountDesk& desk) {
       desk.Drag({{7, 4}, {3, 2}, {5, 3}});
     },
     {5, 3, 7, 4}},
    {"over the start",
     [](AccountDesk& desk) {
       desk.Drag({{5, 2}, {7, 4}, {3, 1}});
     },
     {3, 1, 5, 2}},
    {"to the start",
     [](AccountDesk& desk) {
       desk.Drag({{5, 2}, {7, 4}, {5, 2}});
     },
     {5, 2, 5, 2}},
    {"Shift and a click",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(3, 2));
       desk.ClickAt(desk.At(6, 4), Qt::ShiftModifier);
     },
     {3, 2, 6, 4}},
    {"Shift and a click from where the keys went",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(1, 1));
       desk.Keys(Qt::Key_Down, 4);
       desk.Keys(Qt::Key_Right);
       desk.ClickAt(desk.At(7, 4), Qt::ShiftModifier);
     },
     {5, 2, 7, 4}},
    {"Shift and a drag from where the keys went",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(1, 1));
       desk.Keys(Qt::Key_Down, 4);
       desk.Press(desk.At(7, 2), Qt::ShiftModifier);
       desk.Move(desk.At(8, 2));
       desk.Move(desk.At(8, 3));
       desk.Release(desk.At(8, 3), Qt::ShiftModifier);
     },
     {5, 1, 8, 3}},
    {"Shift and arrows",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(2, 1));
       desk.Keys(Qt::Key_Right, 3);
       desk.Keys(Qt::Key_Down, 3, Qt::ShiftModifier);
       desk.Keys(Qt::Key_Left, 1, Qt::ShiftModifier);
       desk.Keys(Qt::Key_Up, 1, Qt::ShiftModifier);
     },
     {2, 3, 4, 4}},
    {"Shift and arrows behind typing and Return",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(2, 2));
       desk.Keys(Qt::Key_Backspace);
       desk.Keys(Qt::Key_Return, 3);
       desk.Keys(Qt::Key_Up, 2, Qt::ShiftModifier);
     },
     {3, 2, 5, 2}},
    {"Shift and arrows behind a drag",
     [](AccountDesk& desk) {
       desk.Drag({{4, 2}, {6, 3}});
       desk.Keys(Qt::Key_Down, 2, Qt::ShiftModifier);
     },
     {4, 2, 8, 3}},
    {"Shift, Ctrl and Home",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(1, 1));
       desk.Keys(Qt::Key_Down, 2);
       desk.Keys(Qt::Key_Home, 1, Qt::ShiftModifier | Qt::ControlModifier);
     },
     {1, 1, 3, 1}},
    {"Shift and End",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(9, 1));
       desk.Keys(Qt::Key_Right, 2);
       desk.Keys(Qt::Key_End, 1, Qt::ShiftModifier);
     },
     {9, 3, 9, kColumns}},
    {"Shift, Ctrl and arrows",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(9, 1));
       desk.Keys(Qt::Key_Up, 2);
       desk.Keys(Qt::Key_Down, 2, Qt::ShiftModifier | Qt::ControlModifier);
     },
     {7, 1, 9, 1}},
    {"a row's head", [](AccountDesk& desk) { desk.ClickAt(desk.AtRowHead(4)); }, {4, 1, 4, kColumns}},
    {"rows' heads",
     [](AccountDesk& desk) {
       desk.Press(desk.AtRowHead(6));
       for (const int row : {5, 3, 4}) desk.Move(desk.AtRowHead(row));
       desk.Release(desk.AtRowHead(4));
     },
     {4, 1, 6, kColumns}},
    {"Shift and a row's head",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.AtRowHead(4));
       desk.ClickAt(desk.AtRowHead(7), Qt::ShiftModifier);
     },
     {4, 1, 7, kColumns}},
    {"a row's head in a table moved aside",
     [](AccountDesk& desk) {
       desk.LayOutTable(320);
       desk.ClickAt(desk.At(5, 1));
       desk.Keys(Qt::Key_End);
       desk.ClickAt(desk.AtRowHead(5));
     },
     {5, 1, 5, kColumns}},
    {"Ctrl and clicks",
     [](AccountDesk& desk) {
       desk.ClickAt(desk.At(3, 1));
       desk.ClickAt(desk.At(5, 2), Qt::ControlModifier);
     },
     {3, 1, 5, 2}},
    {"the other button on what is selected",
     [](AccountDesk& desk) {
       desk.Drag({{3, 1}, {6, 2}});
       QTimer closes_menu;
       QObject::connect(&closes_menu, &QTimer::timeout, [] {
         if (QWidget* menu = QApplication::activePopupWidget(); menu != nullptr) menu->close();
       });
       closes_menu.start(1);
       QTest::mousePress(desk.window->windowHandle(), Qt::RightButton, {}, desk.At(4, 1));
       QTest::mouseRelease(desk.window->windowHandle(), Qt::RightButton, {}, desk.At(4, 1));
       QApplication::setActiveWindow(desk.window.get());  // the menu had taken the activation
     },
     {3, 1, 6, 2}},
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
      gesture.make(desk);
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
  desk.ClickAt(desk.At(2, 2));
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
  desk.ClickAt(desk.AtColumnHead(2));
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
        desk.ClickAt(any(2) == 0 ? desk.AtRowHead(2 + static_cast<int>(any(9)))
                                 : desk.AtColumnHead(1 + static_cast<int>(any(2))),
                     with);
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

/** Filling a typed number down must not change cards, channels and types of the ports. */
TEST(TableSelection, FillDownAfterArrowsChangesOneColumn) {
  EditorDesk desk;
  desk.ClickCommand("portdefine");
  QTableView& table = *desk.Table();
  const auto texts = [&](int column) {
    QStringList cells;
    for (int row = 0; row < table.model()->rowCount(); ++row)
      cells += table.model()->index(row, column).data().toString();
    return cells;
  };
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                    table.visualRect(table.model()->index(4, 0)).center());
  std::vector<QStringList> before;
  for (int column = 0; column < 3; ++column) before.push_back(texts(column));
  QTest::keyClick(&table, Qt::Key_Home, Qt::ControlModifier);
  for (int i = 0; i < 3; ++i) QTest::keyClick(&table, Qt::Key_Right);
  QTest::keyClick(&table, Qt::Key_1);
  for (int i = 0; i < 19; ++i) QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&table, Qt::Key_D, Qt::ControlModifier);
  for (int column = 0; column < 3; ++column)
    EXPECT_EQ(texts(column), before[static_cast<std::size_t>(column)]) << column;
}

}  // namespace
}  // namespace tarvok::test
