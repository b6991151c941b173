// Watches any Qt program from inside, as a plugin that Qt itself loads (QT_QPA_GENERIC_PLUGINS=paint_watch):
// when its window has been painted, how long each command of its tree takes until its form is painted, and
// its peak memory. The programs are not modified for it, so it measures what a user gets.
//
// Lines on standard output, times in microseconds:
//   painted TIME            monotonic time when nothing was left to paint
//   first TIME              monotonic time of the first paint
//   memory KB               peak resident memory so far
//   command TIME ROWSxCOLUMNS NAME   with BENCH_COMMANDS set: for each command, with the size of its table
//   table TIME WORK NAME             likewise: copy, paste, sort and scroll of the longest table
// Then the program ends.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <string>

#include <QAction>
#include <QApplication>
#include <QGenericPlugin>
#include <QKeyEvent>
#include <QTableView>
#include <QTimer>
#include <QTreeWidget>

namespace tarvok::bench {
namespace {

constexpr int kQuiet_ms = 120;  // without a paint: it is done. Shorter than a cursor's blinking
constexpr int kPages = 20;      // of a table that are scrolled

std::int64_t Now_us() {
  timespec now = {};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * 1'000'000LL + now.tv_nsec / 1000;
}

long PeakMemory_kb() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmHWM:") continue;
    long kilobytes = 0;
    status >> kilobytes;
    return kilobytes;
  }
  return 0;
}

QTableView* ShownTable() {
  for (QWidget* widget : QApplication::allWidgets()) {
    auto* table = qobject_cast<QTableView*>(widget);
    if (table != nullptr && table->isVisible()) return table;
  }
  return nullptr;
}

void Press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers);
  QApplication::sendEvent(widget, &press);
}

}  // namespace

class PaintWatch : public QObject {
 public:
  PaintWatch() {
    quiet_.setSingleShot(true);
    quiet_.setInterval(kQuiet_ms);
    connect(&quiet_, &QTimer::timeout, this, [this] { OnQuiet(); });
    idle_.setSingleShot(true);
    connect(&idle_, &QTimer::timeout, this, [this] {
      last_paint_us_ = Now_us();
      if (first_paint_us_ == 0) first_paint_us_ = last_paint_us_;
    });
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && quiet_armed_) {
      idle_.start(0);  // runs when this paint and everything that came with it are done
      quiet_.start();
    }
    return false;
  }

 private:
  void OnQuiet() {
    if (!started_) {
      started_ = true;
      std::printf("painted %lld\nfirst %lld\nmemory %ld\n", static_cast<long long>(last_paint_us_),
                  static_cast<long long>(first_paint_us_), PeakMemory_kb());
      if (std::getenv("BENCH_COMMANDS") == nullptr) return End();
      tree_ = CommandTree();
      if (tree_ == nullptr) return End();
    } else {
      TellCommand();
    }
    NextCommand();
  }

  /** The tree whose first item has commands below it. */
  static QTreeWidget* CommandTree() {
    for (QWidget* widget : QApplication::allWidgets()) {
      auto* tree = qobject_cast<QTreeWidget*>(widget);
      if (tree == nullptr || !tree->isVisible() || tree->topLevelItemCount() != 1) continue;
      if (tree->topLevelItem(0)->childCount() > 0) return tree;
    }
    return nullptr;
  }

  void TellCommand() {
    const QTableView* table = ShownTable();
    const int rows = table == nullptr ? 0 : table->model()->rowCount();
    const int columns = table == nullptr ? 0 : table->model()->columnCount();
    const QString name = tree_->topLevelItem(0)->child(command_)->text(0);
    std::printf("command %lld %dx%d %s\n", static_cast<long long>(first_paint_us_ - start_us_), rows, columns,
                name.toLocal8Bit().constData());
    if (worked_) return WorkOnTable(name);
    if (rows > most_rows_ && QApplication::activeModalWidget() == nullptr) {
      most_rows_ = rows;
      longest_ = command_;
    }
    ++command_;
  }

  /** Does what a user does to a whole table, each time until it is painted. */
  void WorkOnTable(const QString& name) {
    QTableView* table = ShownTable();
    const auto timed = [&](const char* what, int times, const std::function<void()>& work) {
      const std::int64_t start_us = Now_us();
      work();
      table->viewport()->repaint();
      std::printf("table %lld %s %s\n", static_cast<long long>((Now_us() - start_us) / times), what,
                  name.toLocal8Bit().constData());
    };
    const auto trigger = [&](const char* action) {
      for (QAction* found : table->window()->findChildren<QAction*>(QString::fromLatin1(action))) {
        if (table->actions().contains(found)) found->trigger();
      }
    };
    timed("scroll", kPages, [&] {
      for (int page = 0; page < kPages; ++page) {
        table->scrollTo(table->model()->index((page * 25) % table->model()->rowCount(), 0),
                        QAbstractItemView::PositionAtTop);
        table->viewport()->repaint();
      }
    });
    // A question would otherwise wait for the user.
    QTimer answer;
    connect(&answer, &QTimer::timeout, this, [] {
      if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
    });
    answer.start(kQuiet_ms);
    table->selectAll();
    timed("copy", 1, [&] { trigger("mnu_copy"); });
    timed("paste", 1, [&] { trigger("mnu_paste"); });
    table->setCurrentIndex(table->model()->index(0, 0));
    timed("sort", 1, [&] { trigger("mnu_Sort_ZA"); });
    End();
  }

  void NextCommand() {
    if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
    QTreeWidgetItem* root = tree_->topLevelItem(0);
    while (command_ < root->childCount() && root->child(command_)->isDisabled()) ++command_;
    if (command_ >= root->childCount()) {
      // Comes last, because a changed table asks before another one replaces it.
      if (worked_ || most_rows_ == 0) return End();
      worked_ = true;
      command_ = longest_;
    }
    // Not within this call: a command with a modal window returns only when that is closed.
    QTimer::singleShot(kQuiet_ms, this, [this] {
      tree_->setFocus();
      tree_->setCurrentItem(tree_->topLevelItem(0)->child(command_));
      start_us_ = Now_us();
      first_paint_us_ = 0;
      quiet_.start();
      Press(tree_, Qt::Key_Return);
    });
  }

  void End() {
    quiet_armed_ = false;
    std::printf("memory %ld\n", PeakMemory_kb());
    std::fflush(stdout);
    std::_Exit(0);
  }

  QTimer quiet_;
  QTimer idle_;
  bool quiet_armed_ = true;
  bool started_ = false;
  std::int64_t last_paint_us_ = 0;
  std::int64_t first_paint_us_ = 0;  // since a command was pressed; 0 before
  std::int64_t start_us_ = 0;
  int command_ = 0;
  int most_rows_ = 0;
  int longest_ = 0;
  bool worked_ = false;
  QTreeWidget* tree_ = nullptr;
};

class PaintWatchPlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "paint_watch.json")

 public:
  QObject* create(const QString&, const QString&) override { return new PaintWatch; }
};

}  // namespace tarvok::bench

#include "paint_watch.moc"
