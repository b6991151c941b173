#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/floors.h"
#include "tests/simulation/session_bench.h"
#include "tests/simulation/troubled_port.h"

namespace tarvok::test {

/** One session over one line: which one, of which version, and what happens to it. */
struct SimulatedRun {
  enum Kind { kSend, kCompare, kLoad, kLinkTable, kIp, kMiniBar, kMiniBarLoad, kBilling, kPing, kKinds };
  Kind kind = kSend;
  int by = 1;  // as in a project: 0 server, 1 serial, 2 modem, 3 LAN to serial, 4 LAN
  int version = 110;
  Trouble trouble = {};
  double error_reply = 0;                // commands that the exchange refuses
  std::optional<int> cancel_at_ms = {};  // the user closes the form then
  std::optional<int> failing_call = {};  // the call to the tool's files that fails, from 1
  bool another_after = false;  // a session without troubles follows, and must be as one with a fresh exchange
  std::uint64_t seed = 1;
};

struct SimulatedOutcome {
  bool done = false;
  std::vector<std::string> broken;  // the properties that did not hold
  std::int64_t simulated_ms = 0;
  std::size_t boxes = 0;
  int units = 0;    // that went over the line, in both directions
  std::string log;  // what the user saw, and the history
};

/** What a seed makes of the session; the same for the same seed, always. */
SimulatedRun RunOf(std::uint64_t seed);

/** In one line, for the reader of a failure. */
std::string Described(const SimulatedRun& run);

/** Runs it and tests every property of every session. */
SimulatedOutcome Simulate(const SimulatedRun& run);

}  // namespace tarvok::test
