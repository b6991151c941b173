#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sessions/send_config.h"
#include "tests/simulation/simulated_run.h"

namespace tarvok::test {
namespace {

/** A run must hold every property. Whether it was done. */
bool ExpectWhole(const SimulatedRun& run) {
  const SimulatedOutcome outcome = Simulate(run);
  for (const std::string& broken : outcome.broken) ADD_FAILURE() << Described(run) << ": " << broken;
  return outcome.done;
}

TEST(Simulation, EverySessionUnderEveryTrouble) {
  for (std::uint64_t seed = 1; seed <= 200; ++seed) ExpectWhole(RunOf(seed));
}

TEST(Simulation, ASeedRepeatsExactly) {
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    const SimulatedOutcome once = Simulate(RunOf(seed));
    const SimulatedOutcome again = Simulate(RunOf(seed));
    EXPECT_TRUE(once.log == again.log && once.simulated_ms == again.simulated_ms) << seed;
  }
}

TEST(Simulation, ACompareIsNeverDoneWithADifference) {
  int done = 0;
  for (const double rate : {0.0, 0.001, 0.01, 0.05, 0.2}) {
    for (double Trouble::*trouble : {&Trouble::drop, &Trouble::flip, &Trouble::dup, &Trouble::late}) {
      for (int by = 0; by <= 4; ++by) {
        SimulatedRun run = {
            .kind = SimulatedRun::kCompare, .by = by, .seed = static_cast<std::uint64_t>(by + 1)};
        run.trouble.*trouble = rate;
        run.trouble.late_ms = 5000;
        done += ExpectWhole(run) ? 1 : 0;
      }
    }
  }
  EXPECT_GT(done, 40);
}

TEST(Simulation, ASendOverADamagedLineAdvisesTheCompare) {
  const struct {
    int version;
    double flip;
    bool compare;
    const char* advice;  // its end; nothing where none is due
  } cases[] = {
      {110, 0, false, nullptr},
      {110, 0.01, false, "Send once more with compare."},
      {108, 0.01, false, "Load the configuration and compare it with the project."},
      {110, 0.001, true, nullptr},
  };
  for (const auto& c : cases) {
    SessionBench bench(1, c.version, {.faults = FaultPlan{.flip = c.flip}});
    bench.view.compare = c.compare;
    ASSERT_TRUE(bench.Run(SendConfiguration)) << bench.view.log;
    ASSERT_EQ(bench.view.advice.size(), c.advice == nullptr ? 0U : 1U);
    if (c.advice != nullptr) {
      EXPECT_THAT(bench.view.advice.front(), ::testing::EndsWith(c.advice));
    }
  }
}

}  // namespace
}  // namespace tarvok::test
