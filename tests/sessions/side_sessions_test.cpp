#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sessions/billing_files.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/pace.h"
#include "sessions/ping.h"
#include "sessions/port_test.h"
#include "sessions/send_alone.h"
#include "sessions/send_config.h"
#include "store/number_text.h"
#include "tests/floors.h"
#include "tests/matchers.h"
#include "tests/simulation/session_bench.h"

namespace tarvok::test {
namespace {

TEST(SideSessions, ShowMessagesAndDeliverData) {
  const std::string finished = "Send All Data Config Finished";
  const std::string mini_bar = "Send Mini Bar Data Config Finished";
  const std::string old_tool = "This software is old version, Please contact vender for upgrade";
  // Session, version, the box, lines of the log, and the section that the exchange has afterwards (0 for
  // none).
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
    const std::string before = bench.Project();
    EXPECT_EQ(bench.Run(session), box.find("inished") != std::string::npos) << bench.view.log;
    EXPECT_EQ(bench.view.boxes, Boxes{box});
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);) EXPECT_THAT(bench.view.log, HasSubstr(line + "\n"));
    EXPECT_EQ(bench.memory.sections().size(), section == 0 ? 0U : 1U);
    EXPECT_EQ(bench.memory.sections().contains(section), section != 0);
    EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);
    EXPECT_EQ(bench.complaints, Boxes());
    EXPECT_EQ(bench.Project(), before);
  }
}

TEST(MiniBar, SendsAndLoadsIntoCopyOfTheProject) {
  for (const int by : {1, 2, 3, 4}) {
    SessionBench bench(by);
    ASSERT_TRUE(bench.Run(SendMiniBarList)) << bench.view.log;
    const std::string names = bench.Value("MiniBar", "001");
    ASSERT_TRUE(bench.Set("MiniBar", "001", "Other|1|"));
    ASSERT_TRUE(bench.Set("MiniBar", "512", "Gone|1|"));
    ASSERT_TRUE(bench.Run(LoadMiniBarList, TransferForm::kMiniBar)) << bench.view.log;
    EXPECT_EQ(bench.Value("MiniBar", "001") + "|", names);
    EXPECT_EQ(bench.Value("MiniBar", "512"), "");
    EXPECT_EQ(bench.Value("Port_Def", "001"), IniText(HotelText()).Get("Port_Def", "001"));
    EXPECT_THAT(bench.view.log, HasSubstr("Get All Config Finished.\r\n"));
  }
  SessionBench server(0);
  EXPECT_FALSE(server.Run(LoadMiniBarList, TransferForm::kMiniBar));
  EXPECT_EQ(server.view.boxes, Boxes{"Request for Get MiniBar Error (RE)"});
}

TEST(MiniBar, LoadsEveryRecordIntoItsRowDespiteRepeatedReplies) {
  SessionBench bench(3, 110, {.faults = FaultPlan{.dup = 0.02}});
  bench.FillMiniBar();
  ASSERT_TRUE(bench.Run(LoadMiniBarList, TransferForm::kMiniBar)) << bench.view.log;
  const IniText loaded(bench.Project());
  for (int n = 0; n < kMiniBarRows; ++n)
    EXPECT_EQ(loaded.Get("MiniBar", Padded(n + 1, 3)), "A|" + std::to_string(n));
  EXPECT_THAT(bench.view.advice, testing::ElementsAre(HasSubstr("Load again")));
}

TEST(Billing, SendsFilesOfEverySize) {
  const std::string question =
      "This folder didn't contain some billing file, Do you still want to send data?";
  const auto run = [](SessionBench& bench) {
    return bench.Run([](Transfer& transfer) { return SendBillingFiles(transfer, "/b"); },
                     TransferForm::kBilling);
  };
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
  EXPECT_THAT(bench.view.log, HasSubstr("Sending Table ==>  10 , Sector ==> 1\r\n"));
  EXPECT_THAT(bench.view.log, HasSubstr("File [/b/tbl001.bil] lost\r\nTrying to send next file....\r\n"));
  EXPECT_EQ(bench.view.boxes, Boxes{"Send billing files completed."});
  EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);

  // What a version does with a single file.
  const std::tuple<int, const char*, std::size_t, Boxes> cases[] = {
      {110, "/b/other", 1, {"No Billing Files"}},
      {109, "/b/tblC08.bil", 1, {"Send billing files completed."}},
      {110, "/b/tbl0.bil", 512 * 256 + 1, {"Cannot send data (RE)"}}};
  for (const auto& [version, path, size, boxes] : cases) {
    SessionBench one(4, version);
    one.files.Put(path, std::string(size, 'a'));
    EXPECT_EQ(run(one), version == 109) << path;
    EXPECT_EQ(one.view.boxes, boxes);
    EXPECT_TRUE(one.memory.billing().empty());
  }
}

TEST(Billing, UnreadableTableEndsSession) {
  SessionBench bench(4);
  bench.files.Put("/b/tbl0.bil", "a");
  bench.files.Put("/b/tbl1.bil", "b");
  bench.files.unreadable = "/b/tbl1.bil";
  EXPECT_FALSE(
      bench.Run([](Transfer& transfer) { return SendBillingFiles(transfer, "/b"); }, TransferForm::kBilling));
  EXPECT_EQ(bench.view.boxes, Boxes{"/b/tbl1.bil: made to fail"});
}

TEST(Ping, ReportsReplyTime) {
  for (const int by : {1, 3, 4, 0}) {
    SessionBench bench(by, 110, {.faults = FaultPlan{.delay_ms = 40}});
    EXPECT_TRUE(bench.Run(PingExchange));
    EXPECT_THAT(bench.view.log, HasSubstr("PING?\r\n"));
    EXPECT_THAT(bench.view.log, HasSubstr("Ping reply 0.04"));
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
    EXPECT_THAT(bench.view.log, HasSubstr(log));
    EXPECT_EQ(bench.view.boxes, boxes);
    EXPECT_EQ(bench.opened.size(), by == 1 ? 1U : 0U);  // a ping by modem never opens the port
  }
}

TEST(PortTest, SendsItsDataAndReportsRefusals) {
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
  EXPECT_THAT(bench.view.log, HasSubstr("Get Config Error !!!\r\n"));
  EXPECT_FALSE(bench.files.files.contains("/f/TempGet.txt"));
}

TEST(Compare, FindsWhatTheExchangeChanged) {
  SessionBench bench(4, 109);
  bench.view.compare = true;
  EXPECT_TRUE(bench.Run(SendConfiguration)) << bench.view.log;
  EXPECT_EQ(bench.Value("Chk_Tarvok", "compare"), "1");
  EXPECT_THAT(bench.view.log, HasSubstr("Getting Port Config for compare..."));
  const std::string once = "Send Config:  43\r\n";
  EXPECT_THAT(bench.send_log, HasSubstr(once));
  EXPECT_EQ(bench.send_log.find(once), bench.send_log.rfind(once));
  EXPECT_THAT(bench.send_log, testing::Not(HasSubstr("Send Config:  37\r\n")));

  // A section that the exchange alters is reported after the fourth difference; a single one is repaired by
  // resending.
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
  EXPECT_THAT(old.view.advice, testing::ElementsAre(HasSubstr("Nothing is compared")));
  EXPECT_THAT(old.send_log, HasSubstr("Nothing is compared"));
}

TEST(Pace, ShowsProgressAndTimeLeft) {
  const Pace pace(82'000, 9600, 5'000);
  const std::tuple<int, int, const char*> cases[] = {
      {0, 0, "0 of 82,000 bytes"},
      {0, 60'000, "0 of 82,000 bytes"},
      {640, 999, "640 of 82,000 bytes"},
      {650, 1'000, "650 of 82,000 bytes, 650 bytes/s, about 2:06 left"},
      {41'000, 63'000, "41,000 of 82,000 bytes, 650 bytes/s, about 1:03 left"},
      {81'999, 126'000, "81,999 of 82,000 bytes, 650 bytes/s, about 0:01 left"},
      {82'100, 126'000, "82,000 of 82,000 bytes, 650 bytes/s, about 0:00 left"}};
  for (const auto& [done, ms, now] : cases) EXPECT_EQ(pace.Now(done, 5'000 + ms), now);
}

TEST(Pace, ReportsSilenceOnce) {
  Pace pace(82'000, 9600, 5'000);
  const std::tuple<int, int, bool> cases[] = {{0, 14'999, false},   {0, 15'000, true},   {0, 60'000, false},
                                              {59, 61'000, false},  {59, 75'999, false}, {59, 76'000, true},
                                              {118, 77'000, false}, {118, 100'000, true}};
  for (const auto& [done, ms, silent] : cases) EXPECT_EQ(pace.FallsSilent(done, 5'000 + ms), silent) << ms;
}

TEST(Pace, EndsWithShareOfTheLine) {
  EXPECT_EQ(Pace(82'000, 9600, 0).End(82'000, 126'100),
            "82,000 bytes in 2:06: 650 bytes/s, 67.7 % of the line");
  EXPECT_EQ(Pace(1'234'567, 0, 0).End(1'234'567, 0), "1,234,567 bytes in 0:00: 1,234,567,000 bytes/s");
  // An adapter that holds each byte back for 16 ms leaves about a quarter of a fast line.
  const std::string slow = Pace(82'000, 115'200, 0).End(82'000, 27'000);
  EXPECT_TRUE(slow.starts_with("82,000 bytes in 0:27: 3,037 bytes/s, 26.3 % of the line. Up to two thirds"))
      << slow;
}

}  // namespace
}  // namespace tarvok::test
