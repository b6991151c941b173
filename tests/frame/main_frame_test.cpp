#include "frame/main_frame.h"

#include <algorithm>
#include <optional>
#include <set>

#include <gmock/gmock.h>

#include "tests/desktop/memory_settings.h"
#include "tests/floors.h"
#include "tests/matchers.h"
#include "tests/store/memory_files.h"

namespace tarvok::test {
namespace {

constexpr const char* kSystem = "/prog/system.tvs";
const std::string kTag = "[Chk_Tarvok]\nChk=TARVOK\n";
const std::string kNoCountry = "[003]\nx=1\n[2]\ny=1\n";  // neither section is a country
constexpr const char* kNoSystemBox =
    "box Cannot find system file !!\r\nPlease reinstall program and try again.";

/** A command of each kind. */
std::vector<Command> TriedCommands() {
  std::vector<Command> commands = {
      {.text = "1 - Setup Number", .key = "ext", .recorded = "frmExtension"},
      {.key = "portconfig", .recorded = "frmPortConfigDefine", .compared = "frmPortConfigDef"},
      {.key = "boss", .recorded = "frmBoss"},
      {.key = "tenan", .recorded = "frmTenan"},
      {.key = "billingmode", .recorded = "frmBillingMode", .needs_system_file = true},
      {.key = "minibar", .recorded = "frmMiniBar", .keeps_highlight = false},
      {.key = "minibarconnect",
       .recorded = "frmMiniBarCon",
       .mode = ShowMode::kModal,
       .closed_by_name = false},
      {.key = "connect", .recorded = "frmConnect", .mode = ShowMode::kModal, .saved_on_close = false},
      {.key = "billing", .recorded = "frmBilling", .mode = ShowMode::kModal, .saved_on_close = false},
      {.key = "about", .recorded = "frmAbout", .saved_on_close = false, .needs_project = false}};
  for (Command& command : commands) {
    if (command.mode == ShowMode::kModal) command.keeps_highlight = false;
  }
  return commands;
}

/** The frame with a view that records every call, and forms controlled by the test. */
class Bench : public MainFrameView {
 public:
  Bench() {
    files.Put(kSystem, kTag + "[Country]\nCnt=2\n001=A\n[001]\nCnt=0\n[002]\nUNIT=x\n" + kNoCountry);
    files.Put("/a.tvk", "[chk_tarvok]\nchk= \"tArVoK \"\n");
    files.Put("/b.tvk", kTag);
    std::vector<Command> commands = TriedCommands();
    for (Command& command : commands) {
      command.make = [this, recorded = command.recorded, mode = command.mode](const FormContext& passed) {
        context.emplace(passed);
        did.push_back("load " + std::string(recorded));
        return std::make_unique<FakeForm>(*this, recorded, mode);
      };
    }
    frame = std::make_unique<MainFrame>(MainFrame::Parts{store, recent, state, *this, kSystem, commands});
    frame->Start(false);
  }

  void Show(const FrameLook& shown) override { look = shown; }
  void ShowRecentFiles(const std::vector<std::string>& paths) override { recents = paths; }
  void Highlight(int node, bool on) override {
    highlighted.erase(node);
    if (on) highlighted.insert(node);
  }
  void SetBusyPointer(bool busy) override { pointer_busy = busy; }
  void CriticalBox(std::string_view text) override { did.push_back("box " + std::string(text)); }
  bool Ask(std::string_view question) override {
    did.push_back("ask " + std::string(question));
    return yes;
  }
  std::string ChooseNewFile() override { return chosen; }
  std::string ChooseExistingFile() override { return chosen; }
  void EndProgram() override { did.push_back("end"); }

  void ClickKey(std::string_view key) {
    ASSERT_NE(frame->NodeOf(key), 0) << key;
    frame->ClickNode(frame->NodeOf(key));
  }
  std::vector<std::string> Did() { return std::exchange(did, {}); }

  MemoryFiles files;
  ProjectStore store{files};
  MemorySettings settings;
  RecentFiles recent{settings};
  SharedState state;
  std::optional<FormContext> context;  // passed to the last form
  FrameLook look;
  std::vector<std::string> recents;
  std::set<int> highlighted;
  std::vector<std::string> did;
  std::string chosen;
  std::function<void()> while_modal;
  bool pointer_busy = false;
  bool yes = true;
  bool saves = true;
  bool unloads = true;
  std::unique_ptr<MainFrame> frame;

 private:
  class FakeForm : public Form {
   public:
    FakeForm(Bench& bench, std::string_view name, ShowMode mode) : bench_(bench), name_(name), mode_(mode) {
      EXPECT_TRUE(bench.state.form_loading);
      EXPECT_TRUE(bench.pointer_busy);
    }
    ~FakeForm() override { bench_.did.push_back("gone"); }
    std::string_view name() const override { return name_; }
    void Show() override {
      EXPECT_FALSE(bench_.pointer_busy);
      EXPECT_EQ(bench_.state.active_form_name, name_);
      if (mode_ == ShowMode::kModal && bench_.while_modal) bench_.while_modal();
    }
    bool SaveFile() override {
      bench_.did.emplace_back("save");
      return bench_.saves;
    }
    bool Unload() override { return bench_.unloads; }

   private:
    Bench& bench_;
    std::string_view name_;
    ShowMode mode_;
  };
};

FrameLook NoProject() {
  return {" --= Tarvok Setup 2.36 =-- ", false, true, false, false};
}
FrameLook Project(const std::string& path, bool editor = false) {
  return {path + " ::  --= Tarvok Setup 2.36 =-- ", true, false, true, editor};
}

TEST(MainFrame, ShowsTheStateOfProjectAndForm) {
  Bench bench;
  bench.frame->ClickNode(kFirstCommandNode);  // without a project there are no nodes
  EXPECT_EQ(bench.look, NoProject());

  EXPECT_TRUE(bench.frame->OpenProject("/a.tvk"));
  for (const int node : {-1, 0, kRootNode, kFirstCommandNode + 10}) {
    bench.frame->ClickNode(node);
    EXPECT_EQ(bench.look, Project("/a.tvk")) << node;
  }
  bench.ClickKey("ext");
  EXPECT_EQ(bench.look, Project("/a.tvk", true));
  EXPECT_EQ(bench.state.active_form_name, "frmExtension");
  EXPECT_THAT(bench.highlighted, ElementsAre(2));
  bench.chosen = "/b.tvk";  // New and Open are disabled and must do nothing
  bench.frame->New();
  bench.frame->Open();
  EXPECT_EQ(bench.look, Project("/a.tvk", true));
  EXPECT_TRUE(bench.frame->Close());
  EXPECT_EQ(bench.look, NoProject());
  EXPECT_EQ(bench.state.active_form_name, "");
  EXPECT_EQ(bench.state.previous_node, 0);
  EXPECT_THAT(bench.Did(), ElementsAre("load frmExtension", "gone"));

  bench.frame->Start(true);
  EXPECT_THAT(bench.Did(), ElementsAre("box Program already load !!!"));
  EXPECT_EQ(bench.look, NoProject());
}

TEST(MainFrame, OnlyAboutOpensWhenTheProjectFileIsMissing) {
  Bench bench;
  bench.frame->OpenProject("/b.tvk");
  bench.ClickKey("ext");
  bench.files.files.erase("/b.tvk");
  bench.Did();
  const auto gone = "box The project /b.tvk is missing.\nPut it back in its place and try again.";
  for (const char* key : {"boss", "connect"}) bench.ClickKey(key);
  EXPECT_THAT(bench.Did(), ElementsAre(gone, gone));  // and the previous form stays
  EXPECT_EQ(bench.state.active_form_name, "frmExtension");
  EXPECT_THAT(bench.highlighted, ElementsAre(2));
  bench.ClickKey("about");
  EXPECT_THAT(bench.Did(), ElementsAre("gone", "load frmAbout"));
}

TEST(MainFrame, NewAsksBeforeReplacingAFile) {
  const std::string ask = "ask File already exist, Do you want to replace?";
  const std::tuple<const char*, bool, bool, std::vector<std::string>, FrameLook> cases[] = {
      {"", true, true, {}, NoProject()},
      {"/new", true, true, {}, Project("/new.tvk")},
      {"/new.cfg", true, true, {}, Project("/new.cfg")},
      {"/b.tvk", true, true, {ask}, Project("/b.tvk")},
      {"/b.tvk", false, true, {ask}, NoProject()},
      {"/b.tvk", true, false, {ask, kNoSystemBox}, NoProject()},
  };
  for (const auto& [chosen, yes, system_file, did, look] : cases) {
    Bench bench;
    const std::string before = bench.files.Bytes("/b.tvk");
    if (!system_file) bench.files.files.erase(kSystem);
    bench.chosen = chosen;
    bench.yes = yes;
    bench.frame->New();
    EXPECT_EQ(bench.did, did) << chosen;
    EXPECT_EQ(bench.look, look) << chosen;
    EXPECT_EQ(bench.state.project_file.empty(), look.can_open);
    EXPECT_EQ(bench.files.Bytes(look.can_open ? "/b.tvk" : bench.state.project_file),
              look.can_open ? before : kTag + kNoCountry);
  }
}

TEST(MainFrame, RecentFilesSwitchProjects) {
  Bench bench;
  bench.files.Put("/dead.tvk", kTag);
  for (const char* path : {"/dead.tvk", "/b.tvk", "/a.tvk"}) bench.frame->OpenProject(path);
  bench.files.files.erase("/dead.tvk");
  bench.ClickKey("boss");
  bench.state.data_changed = true;
  bench.Did();

  bench.frame->OpenRecent(1);  // the open project: its form stays
  EXPECT_EQ(bench.look, Project("/a.tvk", true));
  EXPECT_THAT(bench.Did(), IsEmpty());

  bench.saves = false;  // the form's own question was answered No: nothing changes
  bench.frame->OpenRecent(2);
  EXPECT_EQ(bench.look, Project("/a.tvk", true));
  EXPECT_THAT(bench.recents, ElementsAre("/a.tvk", "/b.tvk", "/dead.tvk"));

  bench.saves = true;
  bench.frame->OpenRecent(2);
  EXPECT_EQ(bench.look, Project("/b.tvk"));
  EXPECT_THAT(bench.recents, ElementsAre("/b.tvk", "/a.tvk", "/dead.tvk"));
  EXPECT_THAT(bench.Did(), ElementsAre("save", "save", "gone"));

  bench.frame->OpenRecent(3);  // a missing file: the project is closed first, and the entry stays
  EXPECT_EQ(bench.look, NoProject());
  EXPECT_THAT(bench.Did(), ElementsAre("box File not found or File not correct."));
  EXPECT_THAT(bench.recents, ElementsAre("/b.tvk", "/a.tvk", "/dead.tvk"));
  for (const int k : {0, 4, 6}) bench.frame->OpenRecent(k);
  EXPECT_EQ(bench.look, NoProject());
}

TEST(MainFrame, AClickClosesThePreviousFormAndHighlightsItsNode) {
  Bench bench;
  bench.frame->OpenProject("/a.tvk");
  const std::tuple<const char*, std::vector<std::string>, std::set<int>> clicks[] = {
      {"ext", {"load frmExtension"}, {2}},
      {"ext", {}, {2}},
      {"portconfig", {"gone", "load frmPortConfigDefine"}, {3}},
      {"portconfig", {"gone", "load frmPortConfigDefine"}, {3}},  // reopened on purpose
      {"minibar", {"gone", "load frmMiniBar"}, {}},
      {"connect", {"gone", "load frmConnect", "gone"}, {}},
      {"minibarconnect", {"load frmMiniBarCon", "gone"}, {}},
      {"billing", {"load frmBilling", "gone"}, {}},
      {"about", {"load frmAbout"}, {11}},
      {"billingmode", {"gone", "load frmBillingMode"}, {6}},
  };
  for (const auto& [key, did, highlighted] : clicks) {
    bench.ClickKey(key);
    EXPECT_EQ(bench.Did(), did) << key;
    EXPECT_EQ(bench.highlighted, highlighted) << key;
    EXPECT_FALSE(bench.pointer_busy);
    EXPECT_EQ(bench.state.previous_node, bench.state.clicked_node);
  }
  bench.ClickKey("boss");
  bench.Did();
  const std::string no_system = kNoSystemBox;
  bench.files.Put(kSystem, "");
  bench.ClickKey("billingmode");
  EXPECT_THAT(bench.Did(), ElementsAre(no_system + "\r\n" + kSystem + ": not a system file"));
  bench.files.files.erase(kSystem);
  bench.ClickKey("billingmode");
  EXPECT_THAT(bench.Did(), ElementsAre(no_system));
  EXPECT_EQ(bench.state.active_form_name, "frmBoss");
  EXPECT_EQ(bench.state.previous_node, 6);
  bench.ClickKey("ext");
  bench.state.data_changed = true;
  bench.Did();
  bench.context->closed();  // saving was up to the form
  EXPECT_THAT(bench.Did(), ElementsAre("gone"));
  EXPECT_EQ(bench.look, Project("/a.tvk"));
  EXPECT_FALSE(bench.state.data_changed);
  EXPECT_TRUE(bench.highlighted.empty());
}

TEST(MainFrame, LeavingAFormSavesWithoutAsking) {
  const std::vector<std::function<void(Bench&)>> ways = {
      [](Bench& bench) { bench.ClickKey("tenan"); },
      [](Bench& bench) { EXPECT_EQ(bench.frame->Close(), bench.saves); },
      [](Bench& bench) { bench.frame->ExitProgram(); },
      [](Bench& bench) { EXPECT_EQ(bench.frame->MayEnd(), bench.saves); },
      [](Bench& bench) { bench.context->close_project(); },
      [](Bench& bench) { EXPECT_EQ(bench.frame->CloseActiveForm("  FRMboss "), bench.saves); },
  };
  for (const auto& leave : ways) {
    Bench bench;
    bench.frame->OpenProject("/a.tvk");
    bench.ClickKey("boss");
    bench.state.data_changed = true;
    bench.saves = false;
    bench.Did();
    leave(bench);
    EXPECT_THAT(bench.Did(), ElementsAre("save"));
    EXPECT_EQ(bench.look, Project("/a.tvk", true));
    EXPECT_EQ(bench.state.active_form_name, "frmBoss");
    EXPECT_THAT(bench.highlighted, ElementsAre(4));
    EXPECT_TRUE(bench.state.data_changed);

    bench.saves = true;
    leave(bench);
    EXPECT_THAT(bench.did[0], "save");
    EXPECT_THAT(bench.did[1], "gone");
    EXPECT_FALSE(bench.state.data_changed);
    EXPECT_FALSE(bench.highlighted.contains(4));
  }
}

TEST(MainFrame, FormsCloseByName) {
  Bench bench;
  bench.frame->OpenProject("/a.tvk");
  for (const Command& command : bench.frame->commands()) {
    bench.ClickKey(command.key);
    EXPECT_TRUE(bench.frame->CloseActiveForm(command.recorded));
    EXPECT_EQ(bench.state.active_form_name, "") << command.recorded;
  }
}

TEST(MainFrame, ClicksDuringAModalFormAreIgnored) {
  for (const char* key : {"connect", "minibarconnect"}) {
    Bench bench;
    bench.frame->OpenProject("/a.tvk");
    bench.ClickKey("boss");
    bench.Did();
    bench.while_modal = [&] {
      bench.unloads = false;  // it is working
      EXPECT_EQ(bench.look, Project("/a.tvk")) << "the editor under it is gone";
      bench.ClickKey("ext");
      bench.frame->OpenRecent(1);
      EXPECT_FALSE(bench.frame->Close());
      bench.frame->ExitProgram();
      bench.frame->CloseActiveForm(bench.state.active_form_name);
      EXPECT_NE(bench.state.active_form_name, "");
      bench.unloads = true;
    };
    bench.ClickKey(key);
    EXPECT_EQ(bench.did.size(), 3U) << key;  // the editor gone, then loaded and gone, once each
    EXPECT_EQ(bench.look, Project("/a.tvk"));
    bench.Did();
    bench.while_modal = [&] { EXPECT_FALSE(bench.frame->MayEnd()) << "its own loop is still running"; };
    bench.ClickKey(key);
    EXPECT_THAT(bench.Did(),
                ElementsAre("load " + std::string(bench.frame->FindCommand(key)->recorded), "gone", "end"));
    bench.while_modal = {};
    bench.ClickKey("ext");
    EXPECT_EQ(bench.state.active_form_name, "frmExtension");
    bench.unloads = false;  // a form that is still waiting for something
    EXPECT_FALSE(bench.frame->MayEnd());
    EXPECT_EQ(bench.look, Project("/a.tvk", true));
    bench.unloads = true;
    EXPECT_TRUE(bench.frame->MayEnd());
  }
}

}  // namespace
}  // namespace tarvok::test
