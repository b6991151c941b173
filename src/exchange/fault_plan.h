#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string_view>

#include "exchange/uses.h"
#include "store/status.h"

namespace tarvok::exchange {

/**
 * How a line is to be damaged. What the faults count are units: a frame or control frame of the link, a
 * message of a LAN stream, a packet of the server. Probabilities run from 0 to 1.
 */
struct FaultPlan {
  double drop = 0;         // a unit is lost, in either direction
  double flip = 0;         // one bit of a unit is turned over, in either direction
  double dup = 0;          // a unit comes twice, in either direction
  double error_reply = 0;  // a command of the tool is answered by an error and not carried out
  int delay_ms = 0;        // each unit that the exchange sends leaves so much later
  std::optional<int> silent_after =
      {};  // behind so many units of the tool the line is dead in both directions
  std::optional<int> hangup_after =
      {};  // behind so many units of the tool the exchange closes the connection
};

/** Reads a comma list such as "drop=0.01,delay=20,silent-after=100". An error says which piece is wrong, and
 * how. */
Result<FaultPlan> ParseFaultPlan(std::string_view text);

/** Chances that are the same for the same seed on every machine: the standard fixes the generator, not its
 * distributions, so those are not used. */
class Chances {
 public:
  explicit Chances(std::uint64_t seed) : generator_(seed) {}

  bool Happens(double probability) {
    constexpr double kStep = 1.0 / 9007199254740992.0;  // 2 to the -53
    return static_cast<double>(generator_() >> 11) * kStep < probability;
  }
  /** From 0 to below `count`, which is above 0. */
  std::size_t Pick(std::size_t count) { return static_cast<std::size_t>(generator_() % count); }

 private:
  std::mt19937_64 generator_;
};

}  // namespace tarvok::exchange
