// Runs sessions by seed on all cores and prints a line for each one that breaks a property. A seed repeats
// exactly.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <ctime>
#include <functional>
#include <iomanip>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <CLI/CLI.hpp>

#include "tests/floors.h"
#include "tests/simulation/simulated_run.h"

namespace tarvok::test {
namespace {

/** Returns the n-th run. */
using RunAt = std::function<SimulatedRun(std::uint64_t)>;

/** The totals of many runs. */
struct Tally {
  std::uint64_t done = 0;
  std::uint64_t broken = 0;
  std::int64_t simulated_ms = 0;
  double took_s = 0;
};

/** Makes `count` runs on `jobs` threads and prints each one that broke a property. */
Tally RunAll(std::uint64_t count, unsigned jobs, const RunAt& run_at) {
  std::atomic<std::uint64_t> next{0};
  std::mutex telling;
  Tally tally;
  const auto work = [&] {
    for (std::uint64_t number = next++; number < count; number = next++) {
      const SimulatedRun run = run_at(number);
      const SimulatedOutcome outcome = Simulate(run);
      const std::lock_guard<std::mutex> lock(telling);
      tally.simulated_ms += outcome.simulated_ms;
      tally.done += outcome.done ? 1 : 0;
      if (outcome.broken.empty()) continue;
      ++tally.broken;
      std::cout << Described(run) << ": " << outcome.broken.front() << std::endl;
    }
  };
  const auto start = std::chrono::steady_clock::now();
  std::vector<std::thread> threads;
  for (unsigned job = 0; job < jobs; ++job) threads.emplace_back(work);
  for (std::thread& thread : threads) thread.join();
  tally.took_s = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return tally;
}

/** Like RunAll, and prints the totals; true if no run broke a property. */
bool RunAndPrint(const std::string& what, std::uint64_t count, unsigned jobs, const RunAt& run_at) {
  constexpr double kHour_ms = 3'600'000;
  const Tally tally = RunAll(count, jobs, run_at);
  std::cout << std::fixed << std::setprecision(1) << what << ": " << count << " sessions, " << tally.done
            << " done, " << tally.broken << " broken, " << static_cast<double>(tally.simulated_ms) / kHour_ms
            << " simulated hours in " << tally.took_s << " s" << std::endl;
  return tally.broken == 0;
}

bool RunSeeds(std::uint64_t from, std::uint64_t count, unsigned jobs) {
  const std::string what = "seeds " + std::to_string(from) + " to " + std::to_string(from + count - 1);
  return RunAndPrint(what, count, jobs, [&](std::uint64_t number) { return RunOf(from + number); });
}

/**
 * Sends, compares and loads over a serial line, once for each frame and acknowledgement, which is lost; or
 * only for every `step`-th.
 */
bool RunEveryLoss(std::uint64_t step, unsigned jobs) {
  bool whole = true;
  for (const auto kind : {SimulatedRun::kSend, SimulatedRun::kCompare, SimulatedRun::kLoad}) {
    const SimulatedRun clean = {.kind = kind, .by = 1};
    const std::uint64_t units = (static_cast<std::uint64_t>(Simulate(clean).units) + step - 1) / step;
    whole &= RunAndPrint("each unit lost, " + Described(clean), units, jobs, [&](std::uint64_t number) {
      SimulatedRun run = clean;
      run.trouble.lost = static_cast<int>(number * step);
      return run;
    });
  }
  return whole;
}

bool RunOne(std::uint64_t seed) {
  const SimulatedRun run = RunOf(seed);
  const SimulatedOutcome outcome = Simulate(run);
  std::cout << outcome.log << Described(run) << (outcome.done ? ": done" : ": not done") << std::endl;
  for (const std::string& broken : outcome.broken) std::cout << "broken: " << broken << std::endl;
  return outcome.broken.empty();
}

/** The first seed of the day: every day has its own. */
std::uint64_t SeedOfToday() {
  constexpr std::uint64_t kDaysApart = 1'000'000;
  constexpr std::time_t kSecondsADay = 86'400;
  return static_cast<std::uint64_t>(std::time(nullptr) / kSecondsADay) * kDaysApart;
}

int Main(int argc, char** argv) {
  CLI::App app{"Runs sessions over faulty lines, in simulated time."};
  std::uint64_t from = 1;
  std::uint64_t count = 1000;
  std::uint64_t one = 0;
  std::uint64_t step = 1;
  unsigned jobs = std::max(1U, std::thread::hardware_concurrency());
  bool today = false;
  bool every_loss = false;
  app.add_option("--seeds", count, "how many (1000)");
  CLI::Option* first = app.add_option("--from", from, "the first seed (1)");
  app.add_flag("--today", today, "start with today's seed")->excludes(first);
  app.add_flag("--every-loss", every_loss,
               "instead, lose every single frame and acknowledgement, one by one");
  app.add_option("--step", step, "with --every-loss, only every n-th of them (1)")
      ->check(CLI::Range(1, 1'000'000));
  app.add_option("--jobs", jobs, "number of parallel sessions (one per core)")->check(CLI::Range(1, 256));
  CLI::Option* seed = app.add_option("--seed", one, "run only this seed and print everything");
  CLI11_PARSE(app, argc, argv);
  const bool whole = *seed        ? RunOne(one)
                     : every_loss ? RunEveryLoss(step, jobs)
                                  : RunSeeds(today ? SeedOfToday() : from, count, jobs);
  return whole ? 0 : 1;
}

}  // namespace
}  // namespace tarvok::test

int main(int argc, char** argv) {
  return tarvok::test::Main(argc, argv);
}
