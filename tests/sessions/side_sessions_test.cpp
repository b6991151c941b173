#include <sstream>

#include <gmock/gmock.h>

#include "sessions/billing_files.h"
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
  const std::string finished = "Send All Data Config Finished";
  const std::string mini_bar = "Send Mini Bar Data Config Finished";
  const std::string old_tool = "This software is old version, Please contact vender for upgrade";
  // Session, version, the box, lines of the log, and the section that the exchange holds afterwards; 0 for none.
  const std::tuple<const char*, bool (*)(Transfer&), int, std::string, std::string, int> cases[] = {
      {"link table, old", SendLinkTable, 100, old_tool + " this software.", "Version : 1.00\r\n", 0},
      {"link table", SendLinkTable, 101, finished,
       "### Send PBX Link Table by LAN ###\r\nSending PBX Link Table....................OK\r\n"
       "Sending All Data Config Finished !!!\r\n",
       37},
      {"ip", SendIpAddress, 110, "Send Data Finished",
       "### Send PBX Link Table by LAN ###\r\nSending New PBX IP Address....................OK\r\n"
       "Send  Data Finished !!!\r\n",
       44},
      {"mini bar, old", SendMiniBarList, 105, "EPROM is old version, Please contact vender for upgrade.", "",
       0},
      {"mini bar", SendMiniBarList, 106, mini_bar,
       "### Send Mini Bar by LAN ###\r\nSend Mini Bar Data Config Finished !!!\r\n", 0},
      {"mini bar, new", SendMiniBarList, 111, mini_bar, "", 0},
      {"mini bar load, old", LoadMiniBarList, 105,
       "Eprom is old version, Please contact vender for upgrade software.", "Config Version = 1.05\r\n", 0},
      {"mini bar load, new", LoadMiniBarList, 111, old_tool + " software.", "", 0},
  };
  for (const auto& [what, session, version, box, log, section] : cases) {
    SCOPED_TRACE(what);
    SessionBench bench(4, version);
    const std::string before = bench.files.Bytes(SessionBench::kProject);
    EXPECT_EQ(bench.Run(session), box.find("inished") != std::string::npos) << bench.view.log;
    EXPECT_EQ(bench.view.boxes, Boxes{box});
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);)
      EXPECT_THAT(bench.view.log, testing::HasSubstr(line + "\n"));
    EXPECT_EQ(bench.memory.sections().size(), section == 0 ? 0U : 1U);
    EXPECT_EQ(bench.memory.sections().contains(section), section != 0);
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
  const std::tuple<int, PortState, bool, const char*, Boxes> cases[] = {
      {2, PortState::kOpen, false, "PING?\r\n", {"This version doesn't support ping by modem"}},
      {1, PortState::kError, false, "Err : made to fail\r\n", {"Open COM Port Error"}},
      {4, PortState::kError, false, "Cannot connect to 127.0.0.1\r\n", {}},
      {1, PortState::kOpen, true, "Cannot Established\r\n", {}},
      {4, PortState::kOpen, true, "PING TIMEOUT\r\n", {}},
  };
  for (const auto& [by, state, silent, log, boxes] : cases) {
    LineConditions conditions;
    if (silent) conditions.faults = FaultPlan{.silent_after = 0};
    SessionBench bench(by, 110, conditions);
    bench.port_state = state;
    EXPECT_FALSE(bench.Run(PingExchange));
    EXPECT_NE(bench.view.log.find(log), std::string::npos) << bench.view.log;
    EXPECT_EQ(bench.view.boxes, boxes);
    EXPECT_EQ(bench.opened.size(), by == 1 ? 1U : 0U);  // a ping by modem never touches the port
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

}  // namespace
}  // namespace tarvok::test
