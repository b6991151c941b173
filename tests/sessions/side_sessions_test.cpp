#include <cstdlib>

#include <gtest/gtest.h>

#include "sessions/billing_files.h"
#include "sessions/load_config.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/ping.h"
#include "sessions/port_test.h"
#include "sessions/send_alone.h"
#include "sessions/send_config.h"
#include "tests/hex.h"
#include "tests/simulation/session_bench.h"

namespace tarvok::test {
namespace {

using Boxes = std::vector<std::string>;

TEST(SideSessions, WordsAndWhatArrives) {
  const struct {
    const char* what;
    std::function<bool(Transfer&)> session;
    int version;
    bool result;
    Boxes boxes;
    std::vector<const char*> log;
    std::vector<int> sections;  // what the exchange holds afterwards
  } cases[] = {
      {"link table",
       SendLinkTable,
       101,
       true,
       {"Send All Data Config Finished"},
       {"### Send PBX Link Table by LAN ###\r\n", "Sending PBX Link Table....................OK\r\n",
        "Sending All Data Config Finished !!!\r\n"},
       {37}},
      {"link table, old",
       SendLinkTable,
       100,
       false,
       {"This software is old version, Please contact vender for upgrade this software."},
       {"Version : 1.00\r\n"},
       {}},
      {"ip",
       SendIpAddress,
       110,
       true,
       {"Send Data Finished"},
       {"### Send PBX Link Table by LAN ###\r\n", "Sending New PBX IP Address....................OK\r\n",
        "Send  Data Finished !!!\r\n"},
       {44}},
      {"mini bar",
       SendMiniBarList,
       106,
       true,
       {"Send Mini Bar Data Config Finished"},
       {"### Send Mini Bar by LAN ###\r\n", "Send Mini Bar Data Config Finished !!!\r\n"},
       {}},
      {"mini bar, new", SendMiniBarList, 111, true, {"Send Mini Bar Data Config Finished"}, {}, {}},
      {"mini bar, old",
       SendMiniBarList,
       105,
       false,
       {"EPROM is old version, Please contact vender for upgrade."},
       {},
       {}},
      {"mini bar load, old",
       LoadMiniBarList,
       105,
       false,
       {"Eprom is old version, Please contact vender for upgrade software."},
       {"Config Version = 1.05\r\n"},
       {}},
      {"mini bar load, new",
       LoadMiniBarList,
       111,
       false,
       {"This software is old version, Please contact vender for upgrade software."},
       {},
       {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    SessionBench bench(4, c.version);
    const std::string before = bench.files.Bytes(SessionBench::kProject);
    EXPECT_EQ(bench.Run(c.session), c.result) << bench.view.log;
    EXPECT_EQ(bench.view.boxes, c.boxes);
    for (const char* line : c.log) EXPECT_NE(bench.view.log.find(line), std::string::npos) << bench.view.log;
    std::vector<int> sections;
    for (const auto& [number, image] : bench.memory.sections()) sections.push_back(number);
    EXPECT_EQ(sections, c.sections);
    EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);
    EXPECT_EQ(bench.complaints, Boxes());
    EXPECT_EQ(bench.files.Bytes(SessionBench::kProject), before);
  }
}

TEST(MiniBar, GoesOutAndComesBackIntoACopyOfTheProject) {
  for (const int by : {1, 2, 3, 4}) {
    SessionBench bench(by);
    ASSERT_TRUE(bench.Run(SendMiniBarList)) << bench.view.log;
    const std::string names = bench.Value(SessionBench::kProject, "MiniBar", "001");
    ASSERT_TRUE(bench.store.SetIniValue(SessionBench::kProject, "MiniBar", "001", "Other|1|").ok());
    ASSERT_TRUE(bench.store.SetIniValue(SessionBench::kProject, "MiniBar", "512", "Gone|1|").ok());
    ASSERT_TRUE(bench.Run(LoadMiniBarList, TransferForm::kMiniBar)) << bench.view.log;
    EXPECT_EQ(bench.Value(SessionBench::kProject, "MiniBar", "001") + "|", names);
    EXPECT_EQ(bench.Value(SessionBench::kProject, "MiniBar", "512"), "");
    EXPECT_EQ(bench.Value(SessionBench::kProject, "Port_Def", "001"),
              IniText(HotelText()).Get("Port_Def", "001"));
    EXPECT_NE(bench.view.log.find("Get All Config Finished.\r\n"), std::string::npos);
  }
  SessionBench server(0);
  EXPECT_FALSE(server.Run(LoadMiniBarList, TransferForm::kMiniBar));
  EXPECT_EQ(server.view.boxes, Boxes{"Request for Get MiniBar Error (RE)"});
}

TEST(Billing, FilesInEverySize) {
  const std::string question =
      "This folder didn't contain some billing file, Do you still want to send data?";
  const auto run = [](SessionBench& bench) {
    return bench.Run([](Transfer& transfer) { return SendBillingFiles(transfer, "/b"); },
                     TransferForm::kBilling);
  };
  SessionBench none(4);
  EXPECT_FALSE(run(none));
  EXPECT_EQ(none.view.boxes, Boxes{"No Billing Files"});

  SessionBench bench(4);
  bench.files.Put("/b/TBL0.BIL", std::string(512, 'a'));
  bench.files.Put("/b/tbl10.bil", std::string(1000, 'b'));
  bench.files.Put("/b/tbl7.bil", "");
  bench.files.Put("/b/tblC08.bil", "c");
  EXPECT_TRUE(run(bench)) << bench.view.log;
  EXPECT_EQ(bench.view.questions, (Boxes{"Do you want to send Billing File?", question}));
  EXPECT_EQ(bench.complaints, Boxes());
  EXPECT_EQ(bench.memory.billing()[0].bytes.size(), 512U);
  EXPECT_EQ(bench.memory.billing()[10].bytes.size(), 1000U);
  EXPECT_EQ(bench.memory.billing()[13].bytes.size(), 1U);
  EXPECT_FALSE(bench.memory.billing().contains(7));
  EXPECT_NE(bench.view.log.find("Sending Table ==>  10 , Sector ==> 1\r\n"), std::string::npos);
  EXPECT_NE(bench.view.log.find("File [/b/tbl001.bil] lost\r\nTrying to send next file....\r\n"),
            std::string::npos);
  EXPECT_EQ(bench.view.boxes, Boxes{"Send billing files completed."});
  EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);

  SessionBench older(4, 109);
  older.files.Put("/b/tblC08.bil", "c");
  EXPECT_TRUE(run(older));
  EXPECT_TRUE(older.memory.billing().empty());

  SessionBench large(4);
  large.files.Put("/b/tbl0.bil", std::string(512 * 256 + 1, 'a'));
  EXPECT_FALSE(run(large));
  EXPECT_EQ(large.view.boxes, Boxes{"Cannot send data (RE)"});
  EXPECT_TRUE(large.memory.billing().empty());
}

TEST(Ping, SaysHowLongItTook) {
  for (const int by : {1, 3, 4, 0}) {
    SessionBench bench(by, 110, {.faults = FaultPlan{.delay_ms = 40}});
    EXPECT_TRUE(bench.Run(PingExchange));
    EXPECT_NE(bench.view.log.find("PING?\r\n"), std::string::npos);
    EXPECT_NE(bench.view.log.find("Ping reply 0.04"), std::string::npos) << bench.view.log;
  }
  const struct {
    int by;
    PortState state;
    bool silent;
    const char* log;
    Boxes boxes;
  } cases[] = {
      {2, PortState::kOpen, false, "PING?\r\n", {"This version doesn't support ping by modem"}},
      {1, PortState::kError, false, "Err : made to fail\r\n", {"Open COM Port Error"}},
      {4, PortState::kError, false, "Cannot connect to 127.0.0.1\r\n", {}},
      {1, PortState::kOpen, true, "Cannot Established\r\n", {}},
      {4, PortState::kOpen, true, "PING TIMEOUT\r\n", {}},
  };
  for (const auto& c : cases) {
    LineConditions conditions;
    if (c.silent) conditions.faults = FaultPlan{.silent_after = 0};
    SessionBench bench(c.by, 110, conditions);
    bench.port_state = c.state;
    EXPECT_FALSE(bench.Run(PingExchange));
    EXPECT_NE(bench.view.log.find(c.log), std::string::npos) << bench.view.log;
    EXPECT_EQ(bench.view.boxes, c.boxes);
    EXPECT_EQ(bench.opened.size(), c.by == 1 ? 1U : 0U);  // a ping by modem never touches the port
  }
}

TEST(PortTest, ItsDataAndTheWordsOfAnExchangeThatWantsALogIn) {
  SessionBench bench(1);
  const auto with = [](auto session) {
    return [session](Transfer& transfer) { return session(transfer, "/f"); };
  };
  EXPECT_TRUE(bench.Run(with(WritePortTestData)));
  EXPECT_EQ(bench.files.Bytes("/f/temp.txt").size(), 27500U);
  EXPECT_EQ(bench.files.Bytes("/f/temp.txt").substr(4 * 300, 4), std::string("\x2C\x01\0\0", 4));
  EXPECT_FALSE(bench.Run(with(SendPortTest)));
  EXPECT_FALSE(bench.Run(with(GetPortTest)));
  EXPECT_EQ(bench.view.boxes, (Boxes{"finish", "Send Port Test failed (RE)"}));
  EXPECT_NE(bench.view.log.find("Get Config Error !!!\r\n"), std::string::npos);
  EXPECT_FALSE(bench.files.files.contains("/f/TempGet.txt"));
}

TEST(Compare, FindsWhatTheExchangeChanged) {
  SessionBench bench(4, 109);
  bench.view.compare = true;
  EXPECT_TRUE(bench.Run(SendConfiguration)) << bench.view.log;
  EXPECT_EQ(bench.Value(SessionBench::kProject, "Chk_Tarvok", "compare"), "1");
  EXPECT_NE(bench.view.log.find("Getting Port Config for compare..."), std::string::npos);
  const auto count = [&](const std::string& words) {
    int found = 0;
    for (auto at = bench.send_log.find(words); at != std::string::npos;
         at = bench.send_log.find(words, at + 1))
      ++found;
    return found;
  };
  EXPECT_EQ(count("Send Config:  43\r\n"), 1);
  EXPECT_EQ(count("Send Config:  37\r\n"), 0);

  // An exchange that spoils a section is told after the fourth difference; once is healed by sending again.
  for (const int spoilings : {1, 100}) {
    SessionBench spoiled(4, 110);
    spoiled.view.compare = true;
    int left = spoilings;
    spoiled.memory.set_on_change([&](MemoryPart part) {
      if (part.kind != MemoryPart::Kind::kSection || part.number != 2 || left == 0) return;
      --left;
      spoiled.memory.sections()[2][5] ^= 1;
    });
    EXPECT_EQ(spoiled.Run(SendConfiguration), spoilings == 1);
    if (spoilings == 1) continue;
    EXPECT_EQ(left, spoilings - 4);
    EXPECT_EQ(spoiled.view.boxes, Boxes{"End transfer because compare bytes isn't compatible"});
  }

  SessionBench old(4, 108);
  old.view.compare = true;
  EXPECT_TRUE(old.Run(SendConfiguration));
  EXPECT_EQ(old.view.log.find("for compare"), std::string::npos);
}

/** Every session of the system, by the transports that it works on. */
struct NamedSession {
  const char* name;
  std::function<bool(Transfer&)> run;
  TransferForm form = TransferForm::kConnect;
  bool compare = false;
};

const NamedSession kSessions[] = {
    {"send", SendConfiguration},
    {"compare", SendConfiguration, TransferForm::kConnect, true},
    {"load", LoadConfiguration},
    {"link table", SendLinkTable},
    {"ip", SendIpAddress},
    {"mini bar", SendMiniBarList, TransferForm::kMiniBar},
    {"mini bar load", LoadMiniBarList, TransferForm::kMiniBar},
    {"billing", [](Transfer& transfer) { return SendBillingFiles(transfer, "/b"); }, TransferForm::kBilling},
    {"ping", PingExchange},
};

/** A bench with a billing folder, set for the session. */
std::unique_ptr<SessionBench> BenchFor(const NamedSession& session, int by, LineConditions conditions = {}) {
  auto bench = std::make_unique<SessionBench>(by, 110, conditions);
  bench->files.Put("/b/tbl0.bil", std::string(2000, 'a'));
  bench->view.compare = session.compare;
  EXPECT_TRUE(
      bench->store.SetIniValue(SessionBench::kProject, "Chk_Tarvok", "compare", session.compare ? "1" : "")
          .ok());
  return bench;
}

/** What the exchange counts as units of the tool in an undisturbed run. */
int UnitsOf(const NamedSession& session, int by) {
  const auto bench = BenchFor(session, by);
  VirtualPort* port = nullptr;
  std::size_t writes = 0;
  bench->on_line = [&](VirtualPort& tool, VirtualPort&) { port = &tool; };
  bench->Run(
      [&](Transfer& transfer) {
        const auto watch = bench->events.StartTimer(50, [&] {
          if (transfer.line().line().IsOpen()) writes = port->writes().size();
        });
        const bool done = session.run(transfer);
        bench->events.StopTimer(watch);
        return done;
      },
      session.form);
  return static_cast<int>(writes);
}

TEST(EverySession, SurvivesAConnectionCutAtEachMessage) {
  for (const NamedSession& session : kSessions) {
    for (const int by : {1, 4, 0}) {
      const int units = UnitsOf(session, by);
      // Every one of the first, where the log-in and the first packs are; then spread over the rest, or all of them
      // with TARVOK_EVERY_CUT in the environment.
      const int step = std::getenv("TARVOK_EVERY_CUT") != nullptr ? 1 : 1 + units / 12;
      for (int cut = 0; cut <= units; cut += cut < 16 ? 1 : step) {
        SCOPED_TRACE(std::string(session.name) + " by " + std::to_string(by) + " cut at " +
                     std::to_string(cut));
        const auto bench = BenchFor(session, by, {.faults = FaultPlan{.hangup_after = cut}});
        const std::string before = bench->files.Bytes(SessionBench::kProject);
        // The silence after the first pack of a section has no limit of its own: the user closes the form.
        bench->events.CallLater(600'000, [&] {
          if (bench->transfer != nullptr) bench->transfer->Abort();
        });
        const bool done = bench->Run(session.run, session.form);
        EXPECT_FALSE(bench->events.gave_up());
        if (done) continue;  // cut behind the last word that matters
        EXPECT_TRUE(bench->files.Bytes(SessionBench::kProject) == before);
        EXPECT_LE(bench->view.boxes.size(), 2U);  // a password without an answer may be tried again
        EXPECT_FALSE(bench->view.log.empty());
      }
    }
  }
}

}  // namespace
}  // namespace tarvok::test
