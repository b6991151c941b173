#include <cstdlib>

#include <gtest/gtest.h>

#include "sections/registry.h"
#include "sessions/billing_files.h"
#include "sessions/load_config.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/ping.h"
#include "sessions/send_alone.h"
#include "sessions/send_config.h"
#include "tests/sections/coder_case.h"
#include "tests/simulation/session_bench.h"

namespace tarvok::test {
namespace {

/** What a seed makes of the session: which one, over which line, and how that line is. */
struct Run {
  enum Kind { kSend, kCompare, kLoad, kLinkTable, kIp, kMiniBar, kMiniBarLoad, kBilling, kPing, kKinds };
  Kind kind = kSend;
  int by = 1;
  int version = 110;
  FaultPlan faults;
  std::uint64_t seed = 0;
};

Run RunOf(std::uint64_t seed) {
  Chances chances(seed);
  const auto pick = [&](std::size_t count) { return static_cast<int>(chances.Pick(count)); };
  Run run;
  run.seed = seed;
  run.kind = static_cast<Run::Kind>(pick(Run::kKinds));
  run.by = pick(5);
  run.version = kLowestVersion + pick(11);
  constexpr double kRates[] = {0, 0, 0.001, 0.01, 0.05, 0.2};
  run.faults.drop = kRates[pick(6)];
  run.faults.dup = kRates[pick(6)];
  run.faults.flip = kRates[pick(6)];
  run.faults.error_reply = kRates[pick(6)] / 2;
  run.faults.delay_ms = pick(3) == 0 ? pick(5000) : 0;
  if (pick(6) == 0) run.faults.silent_after = pick(2000);
  if (pick(6) == 0) run.faults.hangup_after = pick(2000);
  return run;
}

bool Tell(const Run& run, Transfer& transfer) {
  switch (run.kind) {
    case Run::kLoad:
      return LoadConfiguration(transfer);
    case Run::kLinkTable:
      return SendLinkTable(transfer);
    case Run::kIp:
      return SendIpAddress(transfer);
    case Run::kMiniBar:
      return SendMiniBarList(transfer);
    case Run::kMiniBarLoad:
      return LoadMiniBarList(transfer);
    case Run::kBilling:
      return SendBillingFiles(transfer, "/b");
    case Run::kPing:
      return PingExchange(transfer);
    default:
      return SendConfiguration(transfer);
  }
}

TransferForm FormOf(Run::Kind kind) {
  if (kind == Run::kBilling) return TransferForm::kBilling;
  return kind == Run::kMiniBarLoad ? TransferForm::kMiniBar : TransferForm::kConnect;
}

/** Whether the exchange holds what the project says. A damaged bit that no sum sees, and an OK that comes twice or behind
 * its time limit and is taken for the next pack's (nothing in it names its pack), are the compare's matter. */
void ExpectArrived(const Run& run, SessionBench& bench) {
  const bool read_back = run.kind == Run::kCompare && run.version >= 109;
  constexpr int kShortestWait_ms = 3000;
  const bool proves_nothing =
      run.faults.flip > 0 || run.faults.dup > 0 || run.faults.delay_ms >= kShortestWait_ms;
  if (run.kind > Run::kCompare || (proves_nothing && !read_back)) return;
  for (const Section* section : SendPlan(run.version)) {
    const Layout* layout = section->LayoutAt(run.version, Direction::kSend);
    EXPECT_TRUE(bench.memory.sections()[section->number] ==
                Encoded(layout->encode, layout->size, HotelText()).bytes())
        << section->number;
  }
}

void Simulate(const Run& run) {
  SCOPED_TRACE("TARVOK_SEED=" + std::to_string(run.seed) + " kind " + std::to_string(run.kind) + " by " +
               std::to_string(run.by) + " version " + std::to_string(run.version) + " drop " +
               std::to_string(run.faults.drop) + " dup " + std::to_string(run.faults.dup) + " delay " +
               std::to_string(run.faults.delay_ms) + " error " + std::to_string(run.faults.error_reply));
  SessionBench bench(run.by, run.version, {.faults = run.faults, .seed = run.seed});
  bench.files.Put("/b/tbl0.bil", std::string(3000, 'a'));
  bench.view.compare = run.kind == Run::kCompare;
  EXPECT_TRUE(
      bench.store.SetIniValue(SessionBench::kProject, "Chk_Tarvok", "compare", bench.view.compare ? "1" : "")
          .ok());
  const std::string before = bench.files.Bytes(SessionBench::kProject);
  // The one wait without a limit is left as a user leaves it.
  constexpr int kPatience_ms = 6 * 3600 * 1000;
  bench.events.CallLater(kPatience_ms, [&] {
    if (bench.transfer != nullptr) bench.transfer->Abort();
  });
  const bool done = bench.Run([&](Transfer& transfer) { return Tell(run, transfer); }, FormOf(run.kind));
  EXPECT_FALSE(bench.events.gave_up());
  const bool loads = run.kind == Run::kLoad || run.kind == Run::kMiniBarLoad;
  EXPECT_TRUE((done && loads) || bench.files.Bytes(SessionBench::kProject) == before);
  EXPECT_TRUE(done || !bench.view.boxes.empty() || !bench.view.log.empty());
  if (done) ExpectArrived(run, bench);
}

/** TARVOK_SEEDS runs so many instead, from TARVOK_SEED on; the seed of a failure runs it again. */
std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : std::strtoull(value, nullptr, 10);
}

TEST(Simulation, EverySessionUnderEveryFault) {
  const std::uint64_t first = FromEnvironment("TARVOK_SEED", 1);
  const std::uint64_t count = FromEnvironment("TARVOK_SEEDS", 300);
  for (std::uint64_t seed = first; seed < first + count && !HasFailure(); ++seed) Simulate(RunOf(seed));
}

}  // namespace
}  // namespace tarvok::test
