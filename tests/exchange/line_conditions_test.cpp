#include <gmock/gmock.h>

#include "exchange/faulty_port.h"
#include "exchange/paced_port.h"
#include "tests/exchange/practice_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(FaultPlan, ParsesListAndReportsErrors) {
  const FaultPlan plan =
      ParseFaultPlan("drop=0.25,flip=1,dup=0,error-reply=1e-3,delay=20,silent-after=7,hangup-after=0")
          .value();
  EXPECT_EQ(plan.drop, 0.25);
  EXPECT_EQ(plan.flip, 1);
  EXPECT_EQ(plan.error_reply, 1e-3);
  EXPECT_EQ(plan.delay_ms, 20);
  EXPECT_EQ(plan.silent_after, 7);
  EXPECT_EQ(plan.hangup_after, 0);
  EXPECT_TRUE(ParseFaultPlan("drop=-0").ok());
  const std::pair<const char*, std::vector<const char*>> kWrong[] = {
      {"NAME=VALUE", {"", "drop", "drop=0.1,"}},
      {"probability", {"drop=1.5", "flip=nan", "flip=0.1x"}},
      {"milliseconds", {"delay=-1", "delay=60001", "delay=2.5"}},
      {"count", {"silent-after=", "hangup-after=99999999999"}},
      {"is not a fault", {"loss=1", "Drop=1"}}};
  for (const auto& [words, texts] : kWrong) {
    for (const char* text : texts) {
      const Result<FaultPlan> read = ParseFaultPlan(text);
      EXPECT_FALSE(read.ok()) << text;
      EXPECT_THAT(read.status().message(), HasSubstr(words)) << text;
    }
  }
}

TEST(FaultyPort, CutsLinkBytesIntoUnits) {
  const std::pair<const char*, std::size_t> kCases[] = {{"", 0},
                                                        {"41", 1},
                                                        {"10", 0},
                                                        {"1005", 0},
                                                        {"100501", 3},
                                                        {"1010", 2},
                                                        {"1002011003", 0},
                                                        {"100201100315", 6},
                                                        {"10021010100315", 7},
                                                        {"1002011010100316", 8},
                                                        {"10020110031010", 6}};
  for (const auto& [bytes, size] : kCases) EXPECT_EQ(LinkUnit(Hex(bytes)), size) << bytes;
}

/** What a tool receives that sends "idle" a hundred times. */
std::vector<std::string> Hundred(const LineConditions& conditions) {
  PracticeBench bench(Wire::kLan, 110, conditions);
  std::vector<std::string> answers;
  for (int i = 0; i < 100; ++i) answers.push_back(bench.Ask("12FF0000"));
  return answers;
}

TEST(FaultyPort, SameSeedDoesSameDamage) {
  for (const char* plan :
       {"drop=0.3", "flip=0.3", "dup=0.3", "drop=0.1,flip=0.1,dup=0.1", "error-reply=0.5"}) {
    EXPECT_EQ(Hundred(Faults(plan, 5)), Hundred(Faults(plan, 5))) << plan;
    EXPECT_NE(Hundred(Faults(plan, 5)), Hundred(Faults(plan, 6))) << plan;
  }
  // The generator is standardised, so the damage is the same on every machine.
  Chances chances(5489);
  EXPECT_EQ(chances.Pick(1'000'000), 14514284786278117030ULL % 1'000'000);
}

TEST(FaultyPort, FallsSilentOrHangsUpAfterACount) {
  PracticeBench silent(Wire::kLan, 110, Faults("silent-after=2"));
  EXPECT_EQ(silent.Ask("12FF0000"), kOk);
  EXPECT_EQ(silent.Ask("12FF0000"), kOk);
  EXPECT_EQ(silent.Ask("12FF0000"), "");
  EXPECT_FALSE(silent.ended);

  PracticeBench hung(Wire::kLan, 110, Faults("hangup-after=1"));
  EXPECT_EQ(hung.Ask("12FF0000"), kOk);
  EXPECT_EQ(hung.Ask("12FF0000"), "");
  EXPECT_TRUE(hung.ended);
  EXPECT_EQ(hung.tool.state(), PortState::kClosed);
  EXPECT_EQ(hung.exchange.calls(), 0U);
}

TEST(PacedPort, PacesBytesWithoutDrift) {
  for (const int speed : {300, 9600, 57600, 115200}) {
    SCOPED_TRACE(speed);
    VirtualEvents events;
    VirtualLine line(events);
    PacedPort port(events, std::move(line.exchange), speed);
    std::vector<std::int64_t> times;
    port.set_on_bytes([&](std::span<const std::uint8_t> bytes) {
      times.insert(times.end(), bytes.size(), events.Tick_ms());
    });
    // The second block finds the line busy and follows without a gap.
    line.tool->Send(Pattern(1000));
    events.Run(1);
    line.tool->Send(Pattern(1000));
    events.Run(100'000);
    ASSERT_EQ(times.size(), 2000U);
    for (std::size_t i = 0; i < times.size(); ++i) {
      const double due_ms = static_cast<double>(i + 1) * 10'000 / speed;
      EXPECT_GE(static_cast<double>(times[i]), due_ms - 1) << i;
      EXPECT_LE(static_cast<double>(times[i]), due_ms) << i;
    }
  }
}

TEST(PacedPort, PacesRepliesAndReportsCloseAfterLastByte) {
  PracticeBench bench(Wire::kLan, 110, {.speed_bps = 9600});
  EXPECT_EQ(bench.Ask("12FF0000", 4), "");  // four bytes take 4.17 ms in each direction
  bench.events.Run(3);
  EXPECT_EQ(HexText(bench.came), "210000");
  bench.events.Run(3);
  EXPECT_EQ(HexText(bench.came), kOk);
  EXPECT_THAT(bench.arrivals_ms, ElementsAre(5, 6, 7, 8));

  bench.tool.Send(Hex("12FF000A04"));
  bench.events.Run(1);
  bench.tool.HangUp();
  bench.events.Run(3);
  EXPECT_FALSE(bench.ended);
  bench.events.Run(10);
  EXPECT_TRUE(bench.ended);
  EXPECT_EQ(bench.memory.mode(), ExchangeMode::kMiniBar);
}

}  // namespace
}  // namespace tarvok::test
