// The layout of the main window: actions, menus, tool bar, status bar and panes.

#include <QDateTime>
#include <QLocale>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>

#include "desktop/look/colours.h"
#include "desktop/look/icons.h"
#include "desktop/look/shown_text.h"
#include "desktop/look/tool_strip.h"
#include "desktop/window/main_window.h"

namespace tarvok::desktop {
namespace {

constexpr int kSecond_ms = 1000;
constexpr int kNarrowestTree = 150;

/** A stack whose minimum size is that of the visible page alone. */
class Pane : public QStackedWidget {
 public:
  QSize minimumSizeHint() const override {
    return currentWidget() == nullptr ? QSize() : currentWidget()->minimumSizeHint();
  }
};

}  // namespace

QAction* MainWindow::MakeAction(const QString& name, const QString& text, const QList<QKeySequence>& keys,
                                const QIcon& icon, void (MainWindow::*run)()) {
  auto* action = new QAction(icon, text, this);
  action->setObjectName(name);
  action->setShortcuts(keys);
  addAction(action);  // its shortcuts work wherever the focus is
  connect(action, &QAction::triggered, this, run);
  return action;
}

void MainWindow::MakeActions() {
  new_ = MakeAction(QStringLiteral("mnu_New"), QStringLiteral("&New"), {QKeySequence::New},
                    IconOf(Picture::kNewProject), &MainWindow::New);
  open_ = MakeAction(QStringLiteral("mnu_open"), QStringLiteral("&Open"), {QKeySequence::Open},
                     IconOf(Picture::kOpenProject), &MainWindow::Open);
  close_ =
      MakeAction(QStringLiteral("mnu_close"), QStringLiteral("&Close"), {QKeySequence(Qt::CTRL | Qt::Key_W)},
                 IconOf(Picture::kCloseProject), &MainWindow::CloseProject);
  exit_ = MakeAction(QStringLiteral("mnu_exit"), QStringLiteral("E&xit"),
                     {QKeySequence(Qt::CTRL | Qt::Key_Q)}, IconOf(Picture::kExit), &MainWindow::Exit);
  help_ = MakeAction(QStringLiteral("mnu_help"), QStringLiteral("&Help for this form"),
                     {QKeySequence(Qt::Key_F1)}, {}, &MainWindow::Help);
  versions_ = MakeAction(QStringLiteral("mnu_versions"), QStringLiteral("Earlier &Versions..."), {}, {},
                         &MainWindow::EarlierVersions);
  save_as_ = MakeAction(QStringLiteral("mnu_save_as"), QStringLiteral("Save &As..."),
                        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)}, {}, &MainWindow::SaveAs);
  duplicate_ = MakeAction(QStringLiteral("mnu_duplicate"), QStringLiteral("&Duplicate..."), {}, {},
                          &MainWindow::Duplicate);
  compare_ = MakeAction(QStringLiteral("mnu_compare"), QStringLiteral("Com&pare With Project..."), {}, {},
                        &MainWindow::CompareWith);
  about_ = MakeAction(QStringLiteral("mnu_about"), QStringLiteral("&About"), {}, {}, &MainWindow::About);
  find_action_ = MakeAction(QStringLiteral("mnu_find"), QStringLiteral("&Find Anywhere..."),
                            {QKeySequence::Find}, {}, &MainWindow::Find);
  exit_->setMenuRole(QAction::QuitRole);
  for (std::size_t i = 0; i < recent_.size(); ++i) {
    const int entry = static_cast<int>(i) + 1;
    recent_[i] = new QAction(this);
    recent_[i]->setObjectName(QStringLiteral("mnu_recent%1").arg(entry));
    connect(recent_[i], &QAction::triggered, this, [this, entry] { frame_->OpenRecent(entry); });
  }
}

void MainWindow::MakeMenus() {
  QMenu* menu = menuBar()->addMenu(QStringLiteral("&PBX"));
  menu->setObjectName(QStringLiteral("mnu_system"));
  menu->addActions({new_, open_});
  menu->addSeparator();
  menu->addAction(close_);
  menu->addActions({save_as_, duplicate_, compare_});
  menu->addAction(versions_);
  menu->addSeparator();
  for (QAction* recent : recent_) menu->addAction(recent);
  dash3_ = menu->addSeparator();
  dash3_->setObjectName(QStringLiteral("mnu_dash3"));
  menu->addAction(exit_);
  // Filled with the actions of the form in the pane when it is opened.
  table_menu_ = menuBar()->addMenu(QStringLiteral("Table"));
  table_menu_->setObjectName(QStringLiteral("mnu_edit"));
  table_menu_->setEnabled(false);
  connect(table_menu_, &QMenu::aboutToShow, this, [this] {
    table_menu_->clear();
    table_menu_->addActions(pane_->currentWidget()->actions());
  });
}

QAction* MainWindow::MakeChoice(QActionGroup* group, const QString& text, std::string_view key,
                                std::string_view value, bool checked) {
  QAction* action = group->addAction(text);
  action->setCheckable(true);
  action->setChecked(checked);
  connect(action, &QAction::triggered, this, [this, key, value] {
    parts_.settings.Set(desktop_key::kGroup, key, value);
    ApplyColours(parts_.settings);
    if (pane_->currentWidget() == overview_) overview_->ShowProject();
  });
  return action;
}

void MainWindow::MakeViewMenu() {
  menuBar()->addMenu(QStringLiteral("&Edit"))->addAction(find_action_);
  QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
  view->addAction(MakeAction(QStringLiteral("mnu_tree"), QStringLiteral("Command &Tree"),
                             {QKeySequence(Qt::CTRL | Qt::Key_T)}, {}, &MainWindow::FocusTree));
  view->addAction(MakeAction(QStringLiteral("mnu_sides"), QStringLiteral("&Other Side"),
                             {QKeySequence(Qt::Key_F6)}, {}, &MainWindow::SwitchSides));
  view->addSeparator();
  QMenu* colours = view->addMenu(QStringLiteral("&Colours"));
  auto* colour_group = new QActionGroup(colours);
  const std::string colour = parts_.settings.Get(desktop_key::kGroup, desktop_key::kColours);
  const QString texts[] = {QStringLiteral("As the &System"), QStringLiteral("&Light"),
                           QStringLiteral("&Dark")};
  for (std::size_t i = 0; i < std::size(kColourChoices); ++i) {
    const std::string_view choice = kColourChoices[i];
    const bool checked = choice == colour || (colour.empty() && i == 0);
    colours->addAction(MakeChoice(colour_group, texts[i], desktop_key::kColours, choice, checked));
  }
  QMenu* letters = view->addMenu(QStringLiteral("&Letters in Projects"));
  letters_ = letters->menuAction();
  view->setToolTipsVisible(true);
  auto* letter_group = new QActionGroup(letters);
  // Asking Qt for its code pages takes time; do it when the menu is opened, not at the start.
  connect(letters, &QMenu::aboutToShow, this, [this, letters, letter_group] {
    if (!letters->isEmpty()) return;
    for (const CodePage& page : CodePage::All()) {
      const bool checked = page.name() == PageOf(parts_.settings).name();
      letters->addAction(
          MakeChoice(letter_group, Words(page.name()), desktop_key::kCodePage, page.name(), checked));
    }
  });
  menuBar()->addMenu(QStringLiteral("&Help"))->addActions({help_, about_});
}

void MainWindow::MakeToolBar() {
  auto* bar = new ToolStrip(QStringLiteral("Toolbar"), this);
  addToolBar(bar);
  bar->setObjectName(QStringLiteral("Toolbar1"));
  bar->setAccessibleName(QStringLiteral("Toolbar"));
  constexpr int kIcon = 16;
  bar->setIconSize({kIcon, kIcon});
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  for (QAction* action : {new_, open_, close_, exit_}) {
    action->setToolTip(QString(action->text()).remove(QLatin1Char('&')));
    bar->addAction(action);
    bar->widgetForAction(action)->setAccessibleName(action->toolTip());
    bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
  }
}

void MainWindow::MakeStatusBar() {
  statusBar()->setObjectName(QStringLiteral("StatusBar1"));
  auto* clock = new QLabel;
  clock->setObjectName(QStringLiteral("Clock"));
  clock->setAccessibleName(QStringLiteral("Clock"));
  statusBar()->addPermanentWidget(clock);
  const auto tick = [clock] {
    clock->setText(QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat));
  };
  tick();
  auto* timer = new QTimer(clock);
  connect(timer, &QTimer::timeout, clock, tick);
  timer->start(kSecond_ms);
}

void MainWindow::MakePanes() {
  splitter_ = new QSplitter;
  splitter_->setChildrenCollapsible(false);
  tree_ = new CommandTree([this](int node) { frame_->ClickNode(node); });
  tree_->setMinimumWidth(kNarrowestTree);
  pane_ = new Pane;
  start_ = new StartPane({.create = [this] { New(); },
                          .open = [this] { frame_->Open(); },
                          .open_recent = [this](int entry) { frame_->OpenRecent(entry); },
                          .start_practice = [this] { practice_.Start(); }});
  practice_.set_on_change([this] { ShowPractice(); });
  pane_->addWidget(start_);
  splitter_->addWidget(tree_);
  auto* scroll = new QScrollArea;  // for windows smaller than the form
  scroll->setObjectName(QStringLiteral("PaneScroll"));
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidgetResizable(true);
  scroll->setWidget(pane_);
  connect(pane_, &QStackedWidget::currentChanged, this, [this, scroll] {
    const QWidget* shown = pane_->currentWidget();
    const bool has_table = shown != nullptr && !shown->actions().isEmpty();
    table_menu_->setEnabled(has_table);
    // Even a disabled menu would take its Alt letter from the form in the pane.
    table_menu_->setTitle(has_table ? QStringLiteral("&Table") : QStringLiteral("Table"));
    scroll->horizontalScrollBar()->setValue(0);
    scroll->verticalScrollBar()->setValue(0);
  });
  splitter_->addWidget(scroll);
  splitter_->setStretchFactor(1, 1);
  setCentralWidget(splitter_);
}

void MainWindow::MakeOverview() {
  overview_ = new OverviewPane(
      parts_, {.open_transfer = [this] { OpenTransfer(); },
               .use_practice = [this] { UsePractice(); },
               .is_offered = [this](const Place& place) { return CommandFor(place) != nullptr; },
               .go = [this](const Place& place) { GoTo(place); }});
  pane_->addWidget(overview_);
}

}  // namespace tarvok::desktop
