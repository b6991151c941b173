#include <map>
#include <set>

#include <QMenu>
#include <QToolBar>

#include "desktop/look/shown_text.h"
#include "desktop/overview/last_transfer.h"
#include "sections/registry.h"
#include "store/header_keys.h"
#include "store/number_text.h"
#include "tests/desktop/desktop_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

/** The visible state of the window: title, commands of the tree, enabled actions, pane. */
std::string Look(DesktopBench& bench) {
  const QList<QAction*> bar = bench.Find<QToolBar>("Toolbar1")->actions();
  QStringList captions;
  for (const QAction* action : bar) captions += action->toolTip();
  EXPECT_EQ(captions.join(',').toStdString(), "New,Open,Close,Exit");
  EXPECT_EQ(bar[0]->isEnabled(), bar[1]->isEnabled());
  const auto* tree = bench.Find<CommandTree>("CommandTree");
  EXPECT_EQ(tree->topLevelItem(0)->text(0).toStdString(), "Setup PBX");
  QWidget* pane = bench.Find<QStackedWidget>("")->currentWidget();
  for (auto* stack : bench.window->findChildren<QStackedWidget*>()) pane = stack->currentWidget();
  return bench.window->windowTitle().toStdString() + "/ " +
         std::to_string(tree->topLevelItem(0)->childCount()) + (bar[0]->isEnabled() ? " open" : "") +
         (bar[2]->isEnabled() ? " close" : "") + " / " + pane->objectName().toStdString();
}

constexpr const char* kNoProject = " --= Tarvok Setup 2.36 =-- / 0 open / Start";
std::string Project(const std::string& path, const std::string& pane = "Overview") {
  return path + " ::  --= Tarvok Setup 2.36 =-- / 33 close / " + pane;
}

/** How a command differs from most. */
std::string Oddities(const Command& command) {
  std::string odd(command.compared);
  if (command.mode == ShowMode::kModal) odd += " modal";
  if (!command.closed_by_name) odd += " closes itself";
  if (!command.saved_on_close) odd += " unsaved";
  if (!command.keeps_highlight) odd += " plain";
  if (command.needs_system_file) odd += " system file";
  if (!command.needs_project) odd += " no project";
  return odd;
}

TEST(MainWindow, CommandsAreNumberedAndCoverEveryField) {
  const std::map<std::string_view, std::string> odd = {
      {"portconfig", "frmPortConfigDef"},
      {"billingmode", " system file"},
      {"minibar", " plain"},
      {"minibarconnect", " modal closes itself unsaved plain"},
      {"connect", " modal unsaved plain"},
      {"billing", " modal unsaved plain"},
      {"about", " unsaved no project"},
  };
  DesktopBench bench;
  int number = 0;
  std::set<std::string_view> keys;
  for (const Command& command : bench.RealCommands()) {
    EXPECT_EQ(Val(command.text), ++number) << command.text;
    EXPECT_TRUE(keys.insert(command.key).second) << command.key;
    const auto found = odd.find(command.key);
    EXPECT_EQ(Oddities(command), found == odd.end() ? "" : found->second) << command.key;
  }
  EXPECT_EQ(number, 33);
  for (const Table* table : Tables()) {
    for (int field = 0; field <= static_cast<int>(table->fields.size()); ++field)
      EXPECT_TRUE(keys.contains(CommandOf(*table, field))) << table->section << " " << field;
  }
}

TEST(MainWindow, FollowsClicksAndKeys) {
  DesktopBench bench;
  EXPECT_EQ(Look(bench), kNoProject);
  EXPECT_FALSE(bench.Find<QAction>("mnu_dash3")->isVisible());

  bench.settings.values["Desktop/LastFolder"] = bench.folder.string();
  Script open({ChooseFile(QStringLiteral("hotel.tvk"))});
  bench.Press(Qt::Key_O);
  EXPECT_TRUE(open.finished());
  EXPECT_EQ(Look(bench), Project(bench.project));
  EXPECT_EQ(bench.settings.values["Desktop/LastFolder"], bench.folder.string());
  EXPECT_TRUE(bench.Find<QAction>("mnu_dash3")->isVisible());
  EXPECT_EQ(bench.Find<QAction>("mnu_recent1")->text(), PathText(bench.project));
  EXPECT_FALSE(bench.Find<QAction>("mnu_recent2")->isVisible());

  bench.ClickCommand("about");
  EXPECT_EQ(Look(bench), Project(bench.project, "frmAbout"));
  EXPECT_EQ(bench.state.active_form_name, "frmAbout");
  QTest::mouseClick(bench.Find<QPushButton>("cmdOK"), Qt::LeftButton);
  EXPECT_EQ(Look(bench), Project(bench.project));
  EXPECT_EQ(bench.state.active_form_name, "");

  bench.Press(Qt::Key_T);
  auto* tree = bench.Find<CommandTree>("CommandTree");
  EXPECT_TRUE(tree->hasFocus());
  QTest::keyClick(tree, Qt::Key_End);
  QTest::keyClick(tree, Qt::Key_Return);
  EXPECT_EQ(Look(bench), Project(bench.project, "frmAbout"));
  bench.Find<QAction>("mnu_recent1")->trigger();
  EXPECT_EQ(Look(bench), Project(bench.project, "frmAbout"));  // the open project stays open
  bench.Press(Qt::Key_W);
  EXPECT_EQ(Look(bench), kNoProject);

  QTest::mouseClick(bench.Find<QAbstractButton>("Recent1"), Qt::LeftButton);
  EXPECT_EQ(Look(bench), Project(bench.project));
  bench.Press(Qt::Key_Q);
  EXPECT_FALSE(bench.window->isVisible());
  EXPECT_NE(bench.settings.values["Desktop/Geometry800x800"], "");
}

TEST(MainWindow, NewAsksOnceAndAddsTheExtension) {
  DesktopBench bench;
  bench.settings.values["Desktop/LastFolder"] = bench.folder.string();
  KeepLastTransfer(bench.settings, bench.files, bench.project, {.time_s = 1, .what = "Ping"});
  std::vector<std::string> boxes;
  Script script({ChooseFile(QStringLiteral("hotel")), AnswerBox(QMessageBox::Yes, &boxes)});
  QTest::mouseClick(bench.Find<QAbstractButton>("StartNew"), Qt::LeftButton);
  EXPECT_TRUE(script.finished());
  EXPECT_EQ(boxes.size(), 1U);
  EXPECT_EQ(Look(bench), Project(bench.project));
  EXPECT_EQ(bench.store.GetIniValue(bench.project, "Country", "Cnt"),
            "");  // it was created from the defaults
  EXPECT_THAT(bench.Find<QLabel>("LastTransfer")->text().toStdString(),
              HasSubstr("has not been transferred"));
}

TEST(MainWindow, CopiesAndComparesTheOpenProject) {
  DesktopBench bench;
  const std::string copy = (bench.folder / "copy.tvk").string();
  bench.settings.values["Desktop/LastFolder"] = bench.folder.string();
  Script about({In(
      "About", [](QWidget& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click(); })});
  bench.Find<QAction>("mnu_about")->trigger();
  EXPECT_TRUE(about.finished());

  bench.frame->OpenProject(bench.project);
  std::vector<std::string> boxes;
  Script duplicate({ChooseFile(QStringLiteral("copy")), AnswerBox(QMessageBox::Ok, &boxes)});
  bench.Find<QAction>("mnu_duplicate")->trigger();
  EXPECT_TRUE(duplicate.finished());
  EXPECT_TRUE(bench.files.Read(copy).value() == bench.files.Read(bench.project).value());
  EXPECT_EQ(Look(bench), Project(bench.project));

  bench.Put("BPS", "1200,n,8,1");
  QStringList lines;
  Script compare({ChooseFile(QStringLiteral("copy.tvk")), In("CompareWith", [&](QWidget& dialog) {
                    auto* list = dialog.findChild<QListWidget*>();
                    for (int row = 0; row < list->count(); ++row) lines += list->item(row)->text();
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                  })});
  bench.Find<QAction>("mnu_compare")->trigger();
  EXPECT_TRUE(compare.finished());
  EXPECT_EQ(lines.size(), 1);
  EXPECT_TRUE(lines.join(u' ').contains(QStringLiteral("1200"))) << lines.join(u' ').toStdString();

  // The open project itself is no target; the copy is replaced only after a question, and kept.
  Script same({ChooseFile(QStringLiteral("hotel.tvk")), AnswerBox(QMessageBox::Ok, &boxes)});
  bench.Find<QAction>("mnu_save_as")->trigger();
  EXPECT_TRUE(same.finished());
  Script save({ChooseFile(QStringLiteral("copy")), AnswerBox(QMessageBox::Yes, &boxes)});
  bench.Find<QAction>("mnu_save_as")->trigger();
  EXPECT_TRUE(save.finished());
  EXPECT_EQ(Look(bench), Project(copy));
  EXPECT_EQ(bench.Value("BPS"), bench.store.GetIniValue(copy, kHeaderSection, "BPS"));
  EXPECT_EQ(bench.history.Versions(copy).value().size(), 1U);
}

TEST(MainWindow, AFileThatIsNotAProjectIsReportedAndNotOpened) {
  DesktopBench bench;
  const std::string untagged = (bench.folder / "untagged.tvk").string();
  ASSERT_TRUE(bench.store.SetIniValue(untagged, kHeaderSection, kHeaderTag, "TARVOK2").ok());
  for (const std::string& path : {bench.folder.string(), untagged, (bench.folder / "gone.tvk").string()}) {
    std::vector<std::string> boxes;
    Script script({AnswerBox(QMessageBox::Ok, &boxes)});
    EXPECT_FALSE(bench.frame->OpenProject(path));
    EXPECT_THAT(boxes, ElementsAre(std::string(kNotAProject))) << path;
    EXPECT_EQ(Look(bench), kNoProject);
    EXPECT_FALSE(bench.Find<QAction>("mnu_recent1")->isVisible());
  }
}

TEST(MainWindow, InvalidSettingsAreIgnored) {
  DesktopBench bench;
  bench.settings.values["Last Transfers/" + ProjectIdentity(bench.files, bench.project)] = "x|sent||";
  for (const char* key : {"Geometry800x800", "Splitter", "LastFolder", "CodePage", "Colours"})
    bench.settings.values[std::string("Desktop/") + key] = "\x01rubbish=\xFF";
  bench.frame->OpenProject(bench.project);
  EXPECT_THAT(bench.Find<QLabel>("LastTransfer")->text().toStdString(),
              HasSubstr("has not been transferred"));
  MainWindow again(bench.parts);
  again.Attach(*bench.frame);
  again.show();
  EXPECT_GT(again.width(), 600);
  EXPECT_EQ(PageOf(bench.settings).name(), CodePage::All().front().name());
}

TEST(MainWindow, TheOverviewCountsAndFollowsTheFile) {
  DesktopBench bench;
  const std::string text = bench.files.Read(bench.project).value();
  ProjectSummary summary = Summarize(IniText(text));
  EXPECT_EQ(summary.slots[0].label, "E1");
  EXPECT_EQ(summary.slots[1].ports_used(), 6);
  EXPECT_TRUE(summary.slots[15].empty());

  summary = Summarize(
      IniText("[Port_Def]\n001=1|1|2|F\n002=1|2|2|F\n003=17|1|1|F\n004=2|1|99|F\n005=F|F|F\n"
              "[Group_Out]\n01=002|F||501|0\n02=F\n[HuntGroup]\n01=3\n[Assign]\n001=F|0\n002=12|0\n"));
  EXPECT_EQ(summary.ports, 2);  // slot 17 and card 99 do not exist
  EXPECT_EQ(summary.ports_used, 1);
  EXPECT_EQ(summary.trunks, 2);
  EXPECT_EQ(summary.groups_out, 1);
  EXPECT_EQ(summary.hunt_groups, 1);
  EXPECT_EQ(summary.numbers, 1);

  ASSERT_TRUE(bench.store.SetIniValue(bench.project, kHeaderSection, "BPS", "").ok());
  ASSERT_TRUE(bench.store.SetIniValue(bench.project, kHeaderSection, "By", "1").ok());
  bench.frame->OpenProject(bench.project);
  EXPECT_THAT(bench.Find<QLabel>("ConnectionLine")->text().toStdString(), HasSubstr("COM1, 9600,n,8,1"));
  EXPECT_EQ(bench.Value("BPS"), "");  // showing a project writes nothing
  std::filesystem::remove(bench.project);
  bench.Find<OverviewPane>("Overview")->ShowProject();
  EXPECT_THAT(bench.Find<QLabel>("Problem")->text().toStdString(), HasSubstr("is missing"));
  EXPECT_EQ(bench.Find<QLabel>("FindingsText")->text(), QStringLiteral("There is no project to check."));
}

}  // namespace
}  // namespace tarvok::test
