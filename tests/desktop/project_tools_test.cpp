// Earlier versions, "What will change?", find, findings, the last transfer and the practice exchange.

#include <QFileDialog>
#include <QListWidget>
#include <QTreeWidget>

#include "desktop/window/find_dialog.h"
#include "desktop/window/versions_dialog.h"
#include "project/places.h"
#include "store/header_keys.h"
#include "tests/desktop/desktop_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

/** The lines of a list, with cells separated by a bar. */
std::vector<std::string> Lines(const QAbstractItemView* view) {
  std::vector<std::string> lines;
  for (int row = 0; row < view->model()->rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < view->model()->columnCount(); ++column)
      cells += view->model()->index(row, column).data().toString();
    lines.push_back(cells.join(QLatin1Char('|')).toStdString());
  }
  return lines;
}

/** A step: records what a label and a list of the modal window show. */
Script::Step Note(const char* modal, const char* list, std::vector<std::string>& lines, std::string& count) {
  return In(modal, [=, &lines, &count](const QWidget& window) {
    lines = Lines(window.findChild<QAbstractItemView*>(QString::fromLatin1(list)));
    count = window.findChild<QLabel*>(QStringLiteral("DifferenceCount"))->text().toStdString();
  });
}

/** A step: types any password, which an exchange without one accepts. */
Script::Step Password() {
  return TypeIn("frmPassword2", "Text1", "1\r");
}

class ProjectTools : public testing::Test {
 protected:
  void SetUp() override { bench.frame->OpenProject(bench.project); }
  void Put(std::string_view section, std::string_view key, std::string_view value) {
    ASSERT_TRUE(bench.store.SetIniValue(bench.project, section, key, value).ok());
  }
  std::string Text(const char* label) { return bench.Find<QLabel>(label)->text().toStdString(); }
  std::string Bytes() { return bench.files.Read(bench.project).value(); }

  DesktopBench bench;
};

TEST_F(ProjectTools, ALoadKeepsTheProjectWhichCanBeBroughtBack) {
  bench.Do("connect", {ClickIn("frmConnect", "cmdWrite"), AnswerBox(QMessageBox::Yes), Password(),
                       AnswerBox(QMessageBox::Ok), ClickIn("frmConnect", "cmdCancel")});
  EXPECT_THAT(Text("LastTransfer"), HasSubstr("Send Data Config, to the exchange, finished, "));
  Put("Name", "002", "Suite");
  const std::string before = Bytes();
  bench.Do("connect", {ClickIn("frmConnect", "cmdLoad"), AnswerBox(QMessageBox::Yes), Password(),
                       AnswerBox(QMessageBox::Yes), ClickIn("frmConnect", "cmdCancel")});
  EXPECT_THAT(Text("LastTransfer"), HasSubstr("Load Data Config, from the exchange, finished, "));
  EXPECT_NE(Bytes(), before);

  std::vector<std::string> lines;
  std::vector<std::string> versions;
  std::string count;
  Script back({Note("EarlierVersions", "Differences", lines, count),
               Note("EarlierVersions", "Versions", versions, count),
               ClickIn("EarlierVersions", "cmdBringBack")});
  bench.Find<QAction>("mnu_versions")->trigger();
  EXPECT_TRUE(back.finished());
  EXPECT_THAT(versions, ElementsAre(testing::EndsWith("|Before a load")));
  EXPECT_THAT(lines, testing::Contains(HasSubstr("Suite \u2192 Room 101")));
  EXPECT_EQ(Bytes(), before);
  const Result<std::vector<KeptVersion>> kept = bench.history.Versions(bench.project);
  ASSERT_EQ(kept.value().size(), 2U);
  EXPECT_EQ(kept.value().front().reason, kBeforeBringBack);
  bench.frame->Close();
  EXPECT_FALSE(bench.Find<QAction>("mnu_versions")->isEnabled());
  EXPECT_THAT(bench.warnings, ElementsAre());
}

TEST_F(ProjectTools, ALoadThatIsRefusedOrCancelledIsNotATransfer) {
  const std::string before = Bytes();
  const auto give_up = [] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog != nullptr) dialog->reject();
    return dialog != nullptr;
  };
  const std::vector<Script::Step> begin = {ClickIn("frmMiniBarCon", "cmdLoad"), AnswerBox(QMessageBox::Yes)};
  std::vector<Script::Step> refused = begin;
  refused.insert(refused.end(),
                 {Password(), AnswerBox(QMessageBox::No), give_up, ClickIn("frmMiniBarCon", "cmdCancel")});
  bench.Do("minibarconnect", refused);
  EXPECT_THAT(Text("LastTransfer"), HasSubstr("Load Mini Bar, from the exchange, not taken, "));
  std::vector<Script::Step> given_up = begin;
  given_up.insert(given_up.end(), {CloseWindow("frmPassword2"), ClickIn("frmMiniBarCon", "cmdCancel")});
  bench.Do("minibarconnect", given_up);
  EXPECT_THAT(Text("LastTransfer"), HasSubstr("Load Mini Bar, from the exchange, cancelled, "));
  EXPECT_EQ(Bytes(), before);
}

TEST_F(ProjectTools, AnUnwritableHistoryIsReportedOnceAndStopsNothing) {
  std::filesystem::create_directories(bench.folder / "data");
  ASSERT_TRUE(
      bench.files.WriteNew((bench.folder / "data/history").string(), "rubbish", "", Flush::kLater).ok());
  bench.parts.keep(bench.project, kBeforeLoad);
  bench.parts.keep(bench.project, kBeforeLoad);
  EXPECT_THAT(bench.warnings, ElementsAre(HasSubstr("could not be kept")));
}

TEST_F(ProjectTools, WhatWillChangeComparesWithTheLastTransfer) {
  std::vector<std::string> lines[3];
  std::string counts[3];
  for (int i = 0; i < 3; ++i) {
    if (i == 2) {
      Put("Name", "002", "Suite");
      Put("MiniBar", "001", "Beer|2.00|");  // this send does not carry it
    }
    std::vector<Script::Step> steps = {ClickIn("frmConnect", "cmdWrite"), ClickIn("frmMsgBox", "cmdChanges"),
                                       Note("WhatWillChange", "Differences", lines[i], counts[i]),
                                       CloseWindow("WhatWillChange"),
                                       AnswerBox(i == 0 ? QMessageBox::Yes : QMessageBox::No)};
    if (i == 0) steps.insert(steps.end(), {Password(), AnswerBox(QMessageBox::Ok)});
    steps.push_back(ClickIn("frmConnect", "cmdCancel"));
    bench.Do("connect", steps);
  }
  EXPECT_THAT(counts[0], HasSubstr("nothing to compare with"));
  EXPECT_THAT(counts[1], HasSubstr("already has this configuration"));
  EXPECT_EQ(counts[2], "1 difference");
  EXPECT_THAT(lines[2], ElementsAre(HasSubstr("Room 101 \u2192 Suite")));
}

TEST_F(ProjectTools, FindGoesToTheRow) {
  bench.Press(Qt::Key_F);
  auto* find = bench.Find<FindDialog>("Find");
  ASSERT_TRUE(find->isVisible());
  QApplication::setActiveWindow(find);
  auto* text = find->findChild<QLineEdit*>("FindText");
  auto* list = find->findChild<QTreeWidget*>("FindResults");
  QTest::keyClicks(text, "reCEPTion");
  EXPECT_THAT(Lines(list), testing::Contains("Name 001 (Reception)|Name|Reception|1 - Setup Number"));
  text->selectAll();
  QTest::keyClicks(text, "hunt group 2");
  EXPECT_THAT(Lines(list), ElementsAre("Hunt Group 02|||10 - Hunt Group"));
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_FALSE(find->isVisible());
  EXPECT_EQ(bench.state.active_form_name, "frmGroupOfHunt");
  EXPECT_THAT(bench.gone_to, ElementsAre(Place{"HuntGroup", "02", 2, 0}));

  bench.Press(Qt::Key_F);
  QApplication::setActiveWindow(find);
  EXPECT_EQ(text->selectedText(), "hunt group 2");  // selected, ready to be replaced
  QTest::keyClicks(text, "127");
  QTest::keyClick(text, Qt::Key_Down);
  EXPECT_EQ(list->indexOfTopLevelItem(list->currentItem()), 1);
  EXPECT_TRUE(text->hasFocus());
  QTest::keyClicks(text, "xyz");
  EXPECT_THAT(find->findChild<QLabel*>("FindCount")->text().toStdString(), HasSubstr("Nothing"));
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_TRUE(find->isVisible());
  bench.frame->Close();
  EXPECT_FALSE(find->isVisible());
}

TEST_F(ProjectTools, FindingsLeadToTheirForms) {
  EXPECT_THAT(Text("FindingsText"), HasSubstr("Nothing to report"));
  EXPECT_TRUE(bench.Find<QListWidget>("Findings")->isHidden());
  Put("HuntGroup", "02", "127|777");
  Put("BOSS", "01", "900|F");
  bench.Find<OverviewPane>("Overview")->ShowProject();
  EXPECT_THAT(Text("FindingsText"), HasSubstr("things to look at"));
  auto* list = bench.Find<QListWidget>("Findings");
  const auto enter = [&](const char* finding) {
    const auto items = list->findItems(QString::fromUtf8(finding), Qt::MatchContains);
    ASSERT_EQ(items.size(), 1) << testing::PrintToString(Lines(list));
    list->setCurrentItem(items.front());
    QTest::keyClick(list, Qt::Key_Return);
  };
  enter("900");
  EXPECT_EQ(bench.state.active_form_name, "frmBoss");
  bench.frame->CloseActiveForm("frmBoss");
  enter("Hunt Group 02 \u00B7 Member 2: 777");
  EXPECT_THAT(bench.gone_to, ElementsAre(Place{"HuntGroup", "02", 2, 2}));
}

TEST_F(ProjectTools, TheProjectConnectsToThePracticeExchange) {
  bench.frame->Close();
  auto* start = bench.Find<QAbstractButton>("StartPractice");
  const std::string program = std::exchange(bench.parts.practice_program, "/nowhere/tarvok-exchange");
  QTest::mouseClick(start, Qt::LeftButton);
  EXPECT_THAT(Text("PracticeText"), HasSubstr("/nowhere/tarvok-exchange does not exist"));
  bench.parts.practice_program = program;
  bench.frame->OpenProject(bench.project);
  Put(kHeaderSection, "By", "1");
  Script use({AnswerBox(QMessageBox::Yes)});
  QTest::mouseClick(bench.Find<QAbstractButton>("cmdPractice"), Qt::LeftButton);
  ASSERT_TRUE(use.finished());
  ASSERT_TRUE(QTest::qWaitFor([&] { return bench.Value("By") == "4"; }, 20'000));
  EXPECT_THAT(Text("PracticeText"), HasSubstr("port " + bench.Value("IPPort")));
  EXPECT_FALSE(start->isEnabled());
  const std::unique_ptr<Port> line =
      bench.real_ports.Connect({.ip_host = "127.0.0.1", .ip_port = bench.Value("IPPort")});
  EXPECT_TRUE(QTest::qWaitFor([&] { return line->state() == PortState::kOpen; }, 20'000));
  EXPECT_EQ(bench.history.Versions(bench.project).value().size(), 1U);
  EXPECT_TRUE(std::filesystem::exists(bench.folder / "practice"));
  bench.frame.reset();
  bench.window.reset();  // the practice exchange ends with the program
  EXPECT_TRUE(QTest::qWaitFor([&] { return line->state() != PortState::kOpen; }, 20'000));
}

}  // namespace
}  // namespace tarvok::test
