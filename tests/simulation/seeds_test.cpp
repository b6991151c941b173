#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sessions/password_form.h"
#include "sessions/send_config.h"
#include "tests/floors.h"
#include "tests/simulation/simulated_run.h"

namespace tarvok::test {
namespace {

/** Expects a run to hold every property. Returns whether the session was done. */
bool ExpectWhole(const SimulatedRun& run, std::size_t most_boxes = 4) {
  const SimulatedOutcome outcome = Simulate(run);
  for (const std::string& broken : outcome.broken) ADD_FAILURE() << Described(run) << ": " << broken;
  EXPECT_LE(outcome.boxes, most_boxes) << Described(run);
  return outcome.done;
}

TEST(Simulation, SessionsSurviveEveryTrouble) {
  for (std::uint64_t seed = 1; seed <= 120; ++seed) ExpectWhole(RunOf(seed));
}

TEST(Simulation, SeedRepeatsExactly) {
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    const SimulatedOutcome once = Simulate(RunOf(seed));
    const SimulatedOutcome again = Simulate(RunOf(seed));
    EXPECT_TRUE(once.log == again.log && once.simulated_ms == again.simulated_ms) << seed;
  }
}

TEST(Simulation, DamagedSendAdvisesCompare) {
  // Version, rate of flipped bits, whether it compares, and the end of the advice; "" if there should be
  // none.
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
  // A repeated OK stood for a section that the exchange had refused unnoticed.
  SessionBench refused(0, 110, {.faults = FaultPlan{.dup = 0.01, .error_reply = 0.001}, .seed = 21});
  ASSERT_TRUE(refused.Run(SendConfiguration)) << refused.view.log;
  EXPECT_FALSE(refused.memory.sections().contains(24));
  EXPECT_THAT(refused.view.advice, ::testing::ElementsAre(::testing::EndsWith("Send again with compare.")));
}

TEST(Simulation, UnreadableProjectIsNeitherSentNorChanged) {
  // Its file disappears while the password is typed: a blank configuration would be sent.
  SessionBench bench(4);
  const std::string before = bench.Project();
  bench.view.fill_form = [&](PasswordForm&) { bench.files.files.erase(SessionBench::kProject); };
  EXPECT_FALSE(bench.Run(SendConfiguration));
  EXPECT_THAT(bench.view.boxes, ::testing::ElementsAre("File not found or File not correct."));
  EXPECT_EQ(bench.memory.sections(), ExchangeMemory(110).sections());
  // Its first read fails: no default may overwrite the settings in it.
  bench.files.Put(SessionBench::kProject, before);
  bench.files.fail_at = bench.files.calls + 1;
  EXPECT_FALSE(bench.Run(SendConfiguration));
  EXPECT_EQ(bench.Project(), before);
}

TEST(Simulation, LossesAndDelaysLeadToAdvice) {
  const std::tuple<SimulatedRun::Kind, int, std::uint64_t, double Trouble::*, int> cases[] = {
      {SimulatedRun::kSend, 3, 1173, &Trouble::late, 2500},  // is done although the exchange lacks sections
      {SimulatedRun::kLoad, 3, 2894, &Trouble::late, 900},   // is done although a pack was taken twice
      {SimulatedRun::kLoad, 1, 1, &Trouble::drop, 0},
      {SimulatedRun::kLoad, 1, 1, &Trouble::echo, 0},  // packs come again in the next section
      {SimulatedRun::kLoad, 4, 1, &Trouble::torn, 0},  // and after an incomplete copy
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

/**
 * Like a user who gives up: the form closes at once, and the next session works as if nothing had happened.
 */
TEST(Simulation, FormClosesDuringEveryWait) {
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

TEST(Simulation, SessionsSurviveConnectionCutAtEachMessage) {
  for (int kind = 0; kind < SimulatedRun::kKinds; ++kind) {
    for (const int by : {1, 4, 0}) {
      // The silence after the first pack of a section has no time limit: the user closes the form.
      SimulatedRun run = {.kind = static_cast<SimulatedRun::Kind>(kind), .by = by, .cancel_at_ms = 600'000};
      const int units = Simulate(run).units / 2;  // the other half are the exchange's
      // Every unit at first, during log-in and the first packs; after that a sample, or all of them if
      // TARVOK_EVERY_CUT is set in the environment.
      const int step = std::getenv("TARVOK_EVERY_CUT") != nullptr ? 1 : 1 + units / 12;
      for (int cut = 0; cut <= units; cut += cut < 16 ? 1 : step) {
        run.trouble.hangup_after = cut;
        ExpectWhole(run, 2);  // an unanswered password may be entered again
      }
    }
  }
}

}  // namespace
}  // namespace tarvok::test
