#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sessions/password_form.h"
#include "sessions/send_config.h"
#include "tests/floors.h"
#include "tests/simulation/simulated_run.h"

namespace tarvok::test {
namespace {

/** A run must hold every property. Whether it was done. */
bool ExpectWhole(const SimulatedRun& run, std::size_t most_boxes = 4) {
  const SimulatedOutcome outcome = Simulate(run);
  for (const std::string& broken : outcome.broken) ADD_FAILURE() << Described(run) << ": " << broken;
  EXPECT_LE(outcome.boxes, most_boxes) << Described(run);
  return outcome.done;
}

TEST(Simulation, EverySessionUnderEveryTrouble) {
  for (std::uint64_t seed = 1; seed <= 120; ++seed) ExpectWhole(RunOf(seed));
}

TEST(Simulation, ASeedRepeatsExactly) {
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    const SimulatedOutcome once = Simulate(RunOf(seed));
    const SimulatedOutcome again = Simulate(RunOf(seed));
    EXPECT_TRUE(once.log == again.log && once.simulated_ms == again.simulated_ms) << seed;
  }
}

TEST(Simulation, ASendOverADamagedLineAdvisesTheCompare) {
  // Version, rate of flipped bits, whether it compares, and how the advice ends; "" where none is due.
  const std::tuple<int, double, bool, const char*> cases[] = {
      {110, 0, false, ""},
      {110, 0.01, false, "Send again with compare."},
      {108, 0.01, false, "Load the configuration and compare it with the project."},
      {110, 0.001, true, ""}};
  for (const auto& [version, flip, compare, advice] : cases) {
    SessionBench bench(1, version, {.faults = FaultPlan{.flip = flip}});
    bench.view.compare = compare;
    ASSERT_TRUE(bench.Run(SendConfiguration)) << bench.view.log;
    EXPECT_EQ(bench.view.advice.size(), *advice == '\0' ? 0U : 1U);
    EXPECT_THAT(bench.view.advice, ::testing::Each(::testing::EndsWith(advice)));
  }
  // An OK that came twice stood for a section, and the exchange refused that one unheard.
  SessionBench refused(0, 110, {.faults = FaultPlan{.dup = 0.01, .error_reply = 0.001}, .seed = 21});
  ASSERT_TRUE(refused.Run(SendConfiguration)) << refused.view.log;
  EXPECT_FALSE(refused.memory.sections().contains(24));
  EXPECT_THAT(refused.view.advice, ::testing::ElementsAre(::testing::EndsWith("Send again with compare.")));
}

TEST(Simulation, AProjectThatCanNotBeReadIsNeitherSentNorChanged) {
  // Its file goes while the password is typed: what would be sent is a blank configuration.
  SessionBench bench(4);
  const std::string before = bench.Project();
  bench.view.fill_form = [&](PasswordForm&) { bench.files.files.erase(SessionBench::kProject); };
  EXPECT_FALSE(bench.Run(SendConfiguration));
  EXPECT_THAT(bench.view.boxes, ::testing::ElementsAre("File not found or File not correct."));
  EXPECT_EQ(bench.memory.sections(), ExchangeMemory(110).sections());
  // Its first read fails: no default goes over the settings that it holds.
  bench.files.Put(SessionBench::kProject, before);
  bench.files.fail_at = bench.files.calls + 1;
  EXPECT_FALSE(bench.Run(SendConfiguration));
  EXPECT_EQ(bench.Project(), before);
}

TEST(Simulation, ALineThatLosesOrDelaysAdvisesAnotherLook) {
  const std::tuple<SimulatedRun::Kind, int, std::uint64_t, double Trouble::*, int> cases[] = {
      {SimulatedRun::kSend, 3, 1173, &Trouble::late, 2500},  // ends done, and the exchange lacks sections
      {SimulatedRun::kLoad, 3, 2894, &Trouble::late, 900},   // ends done with a pack taken twice
      {SimulatedRun::kLoad, 1, 1, &Trouble::drop, 0},
      {SimulatedRun::kLoad, 1, 1, &Trouble::echo, 0},  // packs come again in the next section
      {SimulatedRun::kLoad, 4, 1, &Trouble::torn, 0},  // and behind their beginning
      {SimulatedRun::kLoad, 0, 1, &Trouble::torn, 0},
  };
  for (const auto& [kind, by, seed, trouble, late_ms] : cases) {
    SimulatedRun run = {.kind = kind, .by = by, .seed = seed};
    run.trouble.*trouble = 0.02;
    run.trouble.late_ms = late_ms;
    EXPECT_TRUE(ExpectWhole(run)) << Described(run);
    EXPECT_NE(Simulate(run).log.find("advice: "), std::string::npos) << Described(run);
  }
}

/** Also what a user does who has seen enough: the form goes at once, and the next session is as a fresh one. */
TEST(Simulation, TheFormGoesFromEveryWait) {
  for (const int by : {1, 2, 4, 0}) {
    for (int at_ms = 1; at_ms < 9000; at_ms += by == 2 ? 1900 : 430) {
      SimulatedRun run = {
          .kind = SimulatedRun::kLoad, .by = by, .cancel_at_ms = at_ms, .another_after = true};
      run.trouble.late = 1;
      run.trouble.late_ms = 50;
      ExpectWhole(run);
    }
  }
}

TEST(Simulation, EverySessionSurvivesAConnectionCutAtEachMessage) {
  for (int kind = 0; kind < SimulatedRun::kKinds; ++kind) {
    for (const int by : {1, 4, 0}) {
      // The silence behind the first pack of a section has no limit of its own: the user closes the form.
      SimulatedRun run = {.kind = static_cast<SimulatedRun::Kind>(kind), .by = by, .cancel_at_ms = 600'000};
      const int units = Simulate(run).units / 2;  // the other half is the exchange's
      // Every one of the first, where the log-in and the first packs are; then spread over the rest, or all of them
      // with TARVOK_EVERY_CUT in the environment.
      const int step = std::getenv("TARVOK_EVERY_CUT") != nullptr ? 1 : 1 + units / 12;
      for (int cut = 0; cut <= units; cut += cut < 16 ? 1 : step) {
        run.trouble.hangup_after = cut;
        ExpectWhole(run, 2);  // a password without an answer may be tried again
      }
    }
  }
}

}  // namespace
}  // namespace tarvok::test
