#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/floors.h"
#include "tests/simulation/session_bench.h"
#include "tests/simulation/troubled_port.h"

namespace tarvok::test {

/** One session over one line: its kind, its version, and what happens to it. */
struct SimulatedRun {
  enum Kind { kSend, kCompare, kLoad, kLinkTable, kIp, kMiniBar, kMiniBarLoad, kBilling, kPing, kKinds };
  Kind kind = kSend;
  int by = 1;  // as in a project: 0 server, 1 serial, 2 modem, 3 LAN to serial, 4 LAN
  int version = 110;
  Trouble trouble = {};
  double error_reply = 0;                // commands that the exchange refuses
  std::optional<int> cancel_at_ms = {};  // when the user closes the form
  std::optional<int> failing_call = {};  // which call to the tool's files fails, from 1
  bool another_after = false;  // a faultless session follows and must behave as with a fresh exchange
  std::uint64_t seed = 1;
};

struct SimulatedOutcome {
  bool done = false;
  std::vector<std::string> broken;  // the properties that did not hold
  std::int64_t simulated_ms = 0;
  std::size_t boxes = 0;
  int units = 0;    // that passed over the line, in both directions
  std::string log;  // what the user saw, and the history
};

/** The session for a seed; always the same for the same seed. */
SimulatedRun RunOf(std::uint64_t seed);

/** The run in one line, for failure messages. */
std::string Described(const SimulatedRun& run);

/** Runs the session and checks every property of it. */
SimulatedOutcome Simulate(const SimulatedRun& run);

}  // namespace tarvok::test
