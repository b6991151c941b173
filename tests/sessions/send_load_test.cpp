#include <gmock/gmock.h>

#include "sections/registry.h"
#include "sessions/load_config.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/send_config.h"
#include "sessions/session_words.h"
#include "sessions/store_loaded.h"
#include "store/number_text.h"
#include "tests/floors.h"
#include "tests/matchers.h"
#include "tests/sections/coder_case.h"
#include "tests/simulation/session_bench.h"

namespace tarvok::test {
namespace {

/** The image of a section of a project, in the newest version's layout. */
Bytes ImageOf(const Section& section, const std::string& project) {
  const WireLayout* layout = section.LayoutAt(kHighestVersion, Direction::kSend);
  return Encoded(layout->encode, layout->size, project).bytes();
}

const std::pair<bool (*)(Transfer&), TransferForm> kSessions[] = {{SendConfiguration, TransferForm::kConnect},
                                                                  {LoadConfiguration, TransferForm::kConnect},
                                                                  {SendMiniBarList, TransferForm::kConnect},
                                                                  {LoadMiniBarList, TransferForm::kMiniBar}};

class EveryTransport : public ::testing::TestWithParam<int> {};

TEST_P(EveryTransport, SendsAndLoadsTheHotel) {
  SessionBench bench(GetParam());
  const std::string before = bench.Project();
  ASSERT_TRUE(bench.Run(SendConfiguration)) << bench.view.log;
  EXPECT_EQ(bench.complaints, Boxes());
  EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);
  EXPECT_EQ(bench.Project(), before);
  EXPECT_EQ(bench.view.boxes, Boxes{"Send All Data Config Finished"});
  for (const Section* section : SendPlan(kHighestVersion))
    EXPECT_EQ(bench.memory.sections()[section->number], ImageOf(*section, HotelText())) << section->number;

  // The load goes to another project, which only the last Yes changes.
  bench.files.Put(SessionBench::kProject,
                  "[Chk_Tarvok]\r\nChk=TARVOK\r\nBPS=9600\r\nIPHost=h\r\nIPPort=1\r\nTel=0123\r\nBy=" +
                      std::to_string(GetParam()) + "\r\n");
  ASSERT_TRUE(bench.Run(LoadConfiguration)) << bench.view.log;
  EXPECT_EQ(bench.complaints, Boxes());
  EXPECT_EQ(bench.view.advice, Boxes());
  EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);
  EXPECT_EQ(bench.Value("Chk_Tarvok", "Chk"), "tarvok");
  EXPECT_EQ(bench.Value("Chk_Tarvok", "PID"), "15");
  // Holidays come back as different text, and blank rows of the route map do not come back; the rest is
  // unchanged.
  const std::string loaded = bench.Project();
  for (const Section* section : SendPlan(kHighestVersion)) {
    if (section->number == 26 || section->number == 43) continue;
    EXPECT_EQ(ImageOf(*section, loaded), ImageOf(*section, HotelText())) << section->number;
  }
}

INSTANTIATE_TEST_SUITE_P(By, EveryTransport, ::testing::Values(1, 2, 3, 4, 0));

TEST(SendConfiguration, SendsEachVersionItsSectionsAndLayouts) {
  for (int version = 99; version <= 111; ++version) {
    SCOPED_TRACE(version);
    SessionBench bench(4, version);
    const bool in_bounds = version >= kLowestVersion && version <= kHighestVersion;
    EXPECT_EQ(bench.Run(SendConfiguration), in_bounds);
    EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);
    EXPECT_EQ(bench.complaints, Boxes());
    if (!in_bounds) {
      EXPECT_THAT(
          bench.view.log,
          HasSubstr("This software is old version, Please contact vender for upgrade this software.\r\n"));
      EXPECT_TRUE(bench.memory.sections().empty());
      continue;
    }
    EXPECT_THAT(bench.view.log, HasSubstr("Version : " + FormatGrouped(version) + "\r\n"));
    EXPECT_EQ(bench.memory.sections().contains(42), version >= 106);
    ASSERT_TRUE(bench.Run(LoadConfiguration)) << bench.view.log;
    EXPECT_EQ(bench.Value("PortConfig", "Max"), "20");
  }
}

TEST(SendConfiguration, LogsEachStep) {
  SessionBench bench(1, 110);
  ASSERT_TRUE(bench.Run(SendConfiguration));
  EXPECT_EQ(bench.opened, (std::vector<LineSettings>{{9600, Parity::kNone, 8, StopBits::kOne}}));
  const std::string start =
      "### Send Data Config by Serial ###\r\nInitial COM Port....................................OK\r\n"
      "Check your connection....................OK\r\nSend set mode.................................OK\r\n"
      "Version : 1.10\r\nSending Time...................................OK\r\n"
      "Sending Port Config............................OK\r\n";
  EXPECT_EQ(bench.view.log.substr(0, start.size()), start);
  for (const char* line :
       {"Sending Port...................................OK\r\n", "Sending All Data Config Finished !!!\r\n",
        "Response Error = 0 times\r\n", "Enquiry = 0 times\r\n"}) {
    EXPECT_THAT(bench.view.log, HasSubstr(line));
  }
  EXPECT_EQ(bench.view.bars.back(), kBarEnd);
  for (const char* line :
       {"Send Idle\r\n", "Send set mode - 1\r\n", "Chk pass\r\n", "Get version\r\nReveive Version : 1.1",
        "Send Set Time\r\n", "Send Config:  4\r\n", "Send set mode - 0\r\n"}) {
    EXPECT_THAT(bench.send_log, HasSubstr(line));
  }
}

TEST(SendConfiguration, FailedSectionEndsSendAndSerialFormRestoresNormalMode) {
  for (const int by : {1, 4}) {
    SessionBench bench(by);
    ASSERT_TRUE(bench.Set("Assign", "001", "101|300|001|F|F"));
    EXPECT_FALSE(bench.Run(SendConfiguration));
    EXPECT_EQ(bench.view.boxes, Boxes{"Send Assign Number failed (RE)"});
    const std::string why =
        "section Assign, row 001, field Type: value 300 is more than its place on the wire can hold\r\n";
    EXPECT_THAT(bench.view.log_before_box, HasSubstr("Failed\r\n" + why));
    EXPECT_THAT(bench.send_log, HasSubstr(why));
    EXPECT_TRUE(bench.memory.sections().contains(4));
    EXPECT_FALSE(bench.memory.sections().contains(13));
    EXPECT_FALSE(bench.memory.sections().contains(14));
    // Over a socket the exchange stays in configuration mode; over a serial port the closing form sets it
    // back.
    EXPECT_EQ(bench.memory.mode(), by == 1 ? ExchangeMode::kNormal : ExchangeMode::kConfiguration);
  }
}

TEST(SendConfiguration, NextSendReopensKeptPort) {
  for (const int by : {1, 2}) {
    SessionBench bench(by);
    EXPECT_TRUE(bench.Run([&](Transfer& form) {
      return bench.Set("Assign", "001", "101|300|001|F|F") && !SendConfiguration(form) &&
             bench.Set("Assign", "001", "101|0|001|F|F") && SendConfiguration(form);
    })) << bench.view.log;
    EXPECT_EQ(bench.opened.size(), 2U);
  }
}

TEST(Connection, ReportsFailures) {
  // The missing key, the state of the port, and the messages.
  const std::tuple<int, const char*, PortState, const char*, Boxes> cases[] = {
      {1, "", PortState::kError, "Failed\r\n", {"Initial COM Port failed"}},
      {1, "BPS", PortState::kOpen, "Failed\r\n", {"Initial COM Port failed"}},
      {2, "", PortState::kError, ".......................Failed\r\n", {"Initial COM Port failed"}},
      {2, "Tel", PortState::kOpen, "Error : Please input telephone number\r\n", {}},
      {3, "IPHost", PortState::kOpen, "Error : Please insert IP or Port\r\n", {}},
      {4, "IPPort", PortState::kOpen, "Error : Please insert IP or Port\r\n", {}},
      {0, "", PortState::kError, "Cannot connect to 127.0.0.1\r\n", {}}};
  for (const auto& [by, lacking, state, log, boxes] : cases) {
    SessionBench bench(by);
    EXPECT_TRUE(*lacking == '\0' || bench.Set("Chk_Tarvok", lacking, ""));
    bench.port_state = state;
    EXPECT_FALSE(bench.Run(SendConfiguration));
    EXPECT_THAT(bench.view.log, HasSubstr(log));
    EXPECT_EQ(bench.view.boxes, boxes);
    EXPECT_EQ(bench.reason.ends_with(": made to fail"), state == PortState::kError) << bench.reason;
  }
}

/** Records what the tool writes, and its control lines; a deaf line passes nothing on. */
void Record(SessionBench& bench, std::string& written, bool deaf = false) {
  bench.Watch(
      [&written, deaf](std::span<const std::uint8_t> bytes) {
        written.append(bytes.begin(), bytes.end());
        return !deaf;
      },
      [&written](bool dtr) { written += dtr ? "<on>" : "<off>"; });
}

TEST(Connection, HangsUpWhenCallIsGivenUp) {
  // During set-up, while it rings, in the second after CONNECT, and with the link up; or there is no modem.
  // Once the modem has connected, the control lines drop after the hang-up command.
  const std::pair<int, const char*> cases[] = {
      {500, "<off>ATH0"}, {3300, "<off>ATH0"}, {4200, "ATH0<off>"}, {5200, "ATH0<off>"}, {0, "<off>ATH0"}};
  for (const auto& [at_ms, end] : cases) {
    const bool deaf = at_ms == 0;
    SessionBench bench(2);
    std::string written;
    Record(bench, written, deaf);
    bench.abort_after_ms = deaf ? 100'000 : at_ms;
    EXPECT_FALSE(bench.Run(LoadConfiguration));
    EXPECT_TRUE(written.ends_with(end)) << at_ms << ": " << written;
    EXPECT_EQ(bench.view.boxes.size(), deaf ? 1U : 0U);
  }
}

TEST(Connection, DropsControlLinesAfterHangUp) {
  for (const auto& [session, form] : kSessions) {
    SessionBench bench(2);
    std::string written;
    Record(bench, written);
    EXPECT_TRUE(bench.Run(session, form)) << bench.view.log;
    EXPECT_TRUE(written.ends_with("ATH0<off>")) << written.substr(written.size() - 40);
  }
}

TEST(LogIn, ReportsOldVersionBeforeOrAfterNormalMode) {
  const std::tuple<bool (*)(Transfer&), int, bool> cases[] = {{SendConfiguration, 111, false},
                                                              {LoadConfiguration, 111, true},
                                                              {SendMiniBarList, 105, true},
                                                              {LoadMiniBarList, 105, true}};
  for (const auto& [session, version, before] : cases) {
    SessionBench bench(4, version);
    bool told = !before;
    bench.Watch([&](std::span<const std::uint8_t> bytes) {
      const bool normal = bytes.size() == 5 && bytes[3] == command::kSetMode && bytes[4] == 0;
      if (normal) told = bench.view.log.find("old version") != std::string::npos;
      return true;
    });
    EXPECT_FALSE(bench.Run(session));
    EXPECT_EQ(told, before) << bench.view.log;
  }
}

TEST(Pace, IsShownForSuccessfulTransfersOnly) {
  // On a line where every reply is slow.
  const LineConditions slow = {.faults = FaultPlan{.delay_ms = 10}};
  const auto run = [](SessionBench& bench, bool (*session)(Transfer&), bool done) {
    const bool mini_bar = session == LoadMiniBarList;
    EXPECT_EQ(bench.Run(session, mini_bar ? TransferForm::kMiniBar : TransferForm::kConnect), done)
        << bench.view.log;
    EXPECT_EQ(bench.view.pace.find(" in 0:") != std::string::npos, done) << bench.view.pace;
    EXPECT_EQ(bench.view.pace.empty(), !done) << bench.view.pace;
  };
  for (const auto session : {SendConfiguration, LoadConfiguration, LoadMiniBarList}) {
    SessionBench bench(4, 110, slow);
    run(bench, session, true);
    SessionBench aborted(4, 110, slow);
    aborted.abort_after_ms = 3000;
    run(aborted, session, false);
  }
  SessionBench failed(4, 110, slow);
  ASSERT_TRUE(failed.Set("Assign", "001", "101|300|001|F|F"));
  run(failed, SendConfiguration, false);
}

TEST(Connection, KeptPortIsQuietAfterFailedSection) {
  SessionBench bench(1, 110, {.faults = FaultPlan{.silent_after = 40}});
  std::string written;
  Record(bench, written);
  bench.Run([&](Transfer& form) {
    EXPECT_FALSE(SendConfiguration(form));
    EXPECT_THAT(bench.view.boxes, testing::ElementsAre(HasSubstr("Send ")));
    written.clear();
    bench.events.Run(5000);
    EXPECT_EQ(written, "");  // an unanswered frame is not repeated any more
    return false;
  });
}

TEST(Connection, ReportsDeadLine) {
  for (const int by : {1, 3, 4, 0}) {
    SessionBench bench(by, 110, {.faults = FaultPlan{.silent_after = 0}});
    EXPECT_FALSE(bench.Run(SendConfiguration));
    const bool framed = by == 1 || by == 3;
    EXPECT_EQ(bench.view.boxes, Boxes{framed ? "Please checked your connection\r\nCannot connect to PBX"
                                             : "Change to set mode failed (RE)"});
    EXPECT_EQ(bench.view.log.find("Cannot Established") != std::string::npos, framed);
  }
}

TEST(Password, RefusalsAndChanges) {
  const std::string last =
      "Password incorrect or level password cannot set config.\r\nPlease contact vender.\r\n";
  SessionBench bench(4);
  LevelPasswords known;
  known.Set(1, *PackPassword("1234"));
  bench.memory.AddPasswords(known);

  bench.view.passwords = {"999", "12345", "1"};
  EXPECT_FALSE(bench.Run(SendConfiguration));
  EXPECT_EQ(bench.view.boxes, Boxes(3, "Password incorrect"));
  EXPECT_THAT(bench.view.log, HasSubstr(last));
  EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);
  EXPECT_TRUE(bench.memory.sections().empty());

  bench.view = {};
  bench.view.passwords = {"999", ""};
  EXPECT_FALSE(bench.Run(SendConfiguration));
  EXPECT_EQ(bench.view.boxes, Boxes{"Password incorrect"});
  EXPECT_THAT(bench.view.log, HasSubstr("User cancel\r\n"));
  EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);

  bench.view = {};
  bench.view.passwords = {"1234"};
  bench.view.fill_form = [](PasswordForm& form) {
    form.changes_passwords = true;
    form.levels[1] = {true, "", ""};
    form.password = "1234";
    form.Ok();  // refused before anything is sent
    form.levels[1] = {true, "654", "65"};
    form.Ok();
    form.levels[1] = {true, "000000", "000000"};
  };
  EXPECT_TRUE(bench.Run(SendConfiguration));
  EXPECT_EQ(bench.view.boxes,
            (Boxes{"Please input password", "New password doesn't match", "Send All Data Config Finished"}));
  EXPECT_EQ(bench.memory.passwords().Get(2), (PackedPassword{0xAA, 0xAA, 0xAA}));
  EXPECT_EQ(bench.memory.passwords().Get(1), (PackedPassword{0x12, 0x34, 0xFF}));
}

TEST(LoadConfiguration, AsksWhereToStoreTheProject) {
  SessionBench bench(4);
  ASSERT_TRUE(bench.Run(SendConfiguration));
  const std::string before = bench.Project();
  bench.files.Put("/p/taken.tvk", "old");

  // No, an existing name, No again, another name; then No and no name at all.
  bench.view = {};
  bench.view.answers = {true, false, false};
  bench.view.save_names = {"/p/taken.tvk", "/p/new.tvk"};
  EXPECT_TRUE(bench.Run(LoadConfiguration));
  EXPECT_EQ(bench.view.questions, (Boxes{"Do you want to load data config?",
                                         "Get All Config Finished.\r\nDo you want to replace current file?",
                                         "File already exist, Do you want to replace?"}));
  EXPECT_EQ(bench.files.Bytes("/p/taken.tvk"), "old");
  EXPECT_FALSE(bench.files.files.contains(SessionBench::kTemp));

  bench.view = {};
  bench.view.answers = {true, false};
  EXPECT_TRUE(bench.Run(LoadConfiguration));
  EXPECT_EQ(bench.Project(), before);
  EXPECT_EQ(bench.files.Bytes("/t/2/outcfg.tvk"), bench.files.Bytes("/p/new.tvk"));
}

TEST(LoadConfiguration, NamesCutListAndContinues) {
  SessionBench bench(4);
  ASSERT_TRUE(bench.Run(SendConfiguration));
  Bytes& ban = bench.memory.sections()[5];
  std::fill(ban.begin(), ban.end(), std::uint8_t{0x11});
  ban[0] = 0xE8;  // the first class ends at byte 1,000: its only number has 2,000 digits
  ban[1] = 0x03;
  EXPECT_TRUE(bench.Run(LoadConfiguration));
  const std::string told = "The value of COR 01 is longer than 1999 characters";
  EXPECT_THAT(bench.view.advice, testing::ElementsAre(testing::StartsWith(told)));
  EXPECT_THAT(bench.send_log, HasSubstr(told));
  EXPECT_EQ(bench.Value("Chk_Tarvok", "Chk"), "tarvok");
}

TEST(LoadConfiguration, KeepsFileCreatedDuringLoad) {
  SessionBench bench(4);
  bench.files.Put("/p/out.tvk", "somebody's");
  bench.load_target = "/p/out.tvk";
  bench.may_replace = false;
  EXPECT_FALSE(bench.Run(LoadConfiguration));
  EXPECT_EQ(bench.files.Bytes("/p/out.tvk"), "somebody's");
  EXPECT_TRUE(bench.reason.ends_with(std::string("is in ") + SessionBench::kTemp)) << bench.reason;
  EXPECT_EQ(bench.view.pace, "");
}

TEST(LoadConfiguration, BuildsProjectInPrivateFolder) {
  SessionBench bench(4);
  const auto no_connection = [&](bool (*session)(Transfer&)) {
    bench.view = {};
    EXPECT_FALSE(bench.Run(session));
    EXPECT_EQ(bench.view.boxes, Boxes{"/t: made to fail"});
    EXPECT_EQ(bench.view.log, "");
  };
  for (const auto session : {LoadConfiguration, LoadMiniBarList}) {
    bench.Value("Chk_Tarvok", "By");  // read beforehand, so that the folder is the next call
    bench.files.fail_at = bench.files.calls + 1;
    no_connection(session);
  }
  bench.view = {};
  EXPECT_TRUE(bench.Run([&](Transfer& first) {
    EXPECT_TRUE(BeginTemporary(first));
    EXPECT_TRUE(UpdateTemporary(first, [](IniEdit& edit) { edit.Set("a", "k", "first"); }).ok());
    Transfer second(first.parts(), TransferForm::kMiniBar);
    EXPECT_TRUE(BeginTemporary(second));
    EXPECT_TRUE(UpdateTemporary(second, [](IniEdit& edit) { edit.Set("a", "k", "second"); }).ok());
    return StoreLoaded(first);
  }));
  EXPECT_EQ(bench.Value("a", "k"), "first");
}

TEST(EverySession, PausesAfterTheOkToAnAnswer) {
  for (const auto& [session, form] : kSessions) {
    SessionBench bench(4);
    bench.view.compare = true;
    int at_once = 0;  // messages that leave in the same millisecond as the OK before them
    std::int64_t ok_ms = -1;
    bench.Watch([&](std::span<const std::uint8_t> bytes) {
      const bool is_ok = bytes.size() == 4 && bytes[3] == reply::kOk;
      at_once += !is_ok && bench.events.Tick_ms() == ok_ms ? 1 : 0;
      ok_ms = is_ok ? bench.events.Tick_ms() : -1;
      return true;
    });
    EXPECT_TRUE(bench.Run(session, form)) << bench.view.log;
    EXPECT_EQ(at_once, 0);
  }
}

}  // namespace
}  // namespace tarvok::test
