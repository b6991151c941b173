// What Qt itself costs: an empty main window; with "dressed", one with menu, toolbar, tree, text and status
// bar, as programs usually have; with sizes such as "500x12 96x4", a tree whose commands each show a plain
// table of that size.

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTableWidget>
#include <QToolBar>
#include <QTreeWidget>

namespace {

constexpr int kTreeWidth = 240;  // as in the program

QTableWidget* PlainTable(int rows, int columns) {
  auto* table = new QTableWidget(rows, columns);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      table->setItem(row, column, new QTableWidgetItem(QString::number(row * 100 + column)));
    }
  }
  return table;
}

/** The same work as in the program, done in the simplest way. */
void AddWork(QTableWidget* table) {
  const auto add = [table](const char* name, auto work) {
    auto* action = new QAction(table);
    action->setObjectName(QString::fromLatin1(name));
    QObject::connect(action, &QAction::triggered, table, work);
    table->addAction(action);
  };
  add("mnu_copy", [table] {
    QStringList rows;
    for (int row = 0; row < table->rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < table->columnCount(); ++column) cells << table->item(row, column)->text();
      rows << cells.join(QLatin1Char('\t'));
    }
    QApplication::clipboard()->setText(rows.join(QLatin1Char('\n')));
  });
  add("mnu_paste", [table] {
    const QStringList rows = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    for (int row = 0; row < rows.size() && row < table->rowCount(); ++row) {
      const QStringList cells = rows[row].split(QLatin1Char('\t'));
      for (int column = 0; column < cells.size() && column < table->columnCount(); ++column) {
        table->item(row, column)->setText(cells[column]);
      }
    }
  });
  add("mnu_Sort_ZA", [table] { table->sortItems(0, Qt::DescendingOrder); });
}

void Dress(QMainWindow& window) {
  QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&File"));
  QToolBar* tools = window.addToolBar(QStringLiteral("Tools"));
  for (const QStyle::StandardPixmap icon :
       {QStyle::SP_FileIcon, QStyle::SP_DialogOpenButton, QStyle::SP_DirClosedIcon}) {
    QAction* action = menu->addAction(window.style()->standardIcon(icon), QStringLiteral("&Open"));
    tools->addAction(action);
  }
  auto* splitter = new QSplitter(&window);
  auto* tree = new QTreeWidget(splitter);
  auto* root = new QTreeWidgetItem(tree, {QStringLiteral("Commands")});
  for (int command = 1; command <= 33; ++command)
    new QTreeWidgetItem(root, {QStringLiteral("Command %1").arg(command)});
  root->setExpanded(true);
  auto* text = new QLabel(QStringLiteral("A headline and <b>a word</b> of text"), splitter);
  text->setAlignment(Qt::AlignCenter);
  window.setCentralWidget(splitter);
  window.statusBar()->showMessage(QStringLiteral("Ready"));
}

void AddTables(QMainWindow& window, const QStringList& sizes) {
  auto* splitter = new QSplitter(&window);
  auto* tree = new QTreeWidget(splitter);
  auto* pane = new QStackedWidget(splitter);
  window.setCentralWidget(splitter);
  auto* root = new QTreeWidgetItem(tree, {QStringLiteral("Tables")});
  for (const QString& size : sizes) new QTreeWidgetItem(root, {size});
  root->setExpanded(true);
  // An empty pane would be a strip, and a table in it would paint only a column or two.
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({kTreeWidth, window.width() - kTreeWidth});
  QObject::connect(tree, &QTreeWidget::itemActivated, pane, [pane](QTreeWidgetItem* item) {
    const QStringList size = item->text(0).split(QLatin1Char('x'));
    if (size.size() != 2) return;
    delete pane->currentWidget();
    QTableWidget* table = PlainTable(size[0].toInt(), size[1].toInt());
    AddWork(table);
    pane->addWidget(table);
    pane->setCurrentWidget(table);
    table->setFocus();
  });
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(1240, 800);
  const QStringList sizes = QCoreApplication::arguments().mid(1);
  if (sizes == QStringList{QStringLiteral("dressed")}) {
    Dress(window);
  } else if (!sizes.isEmpty()) {
    AddTables(window, sizes);
  }
  window.show();
  return QApplication::exec();
}
