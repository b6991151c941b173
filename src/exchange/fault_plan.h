#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string_view>

#include "exchange/uses.h"
#include "store/status.h"

namespace tarvok::exchange {

/**
 * How a line is damaged. Faults apply to units: a frame or control frame of the link, a message of a LAN
 * stream, a packet of the server. Probabilities are from 0 to 1.
 */
struct FaultPlan {
  double drop = 0;                       // a unit is lost, in either direction
  double flip = 0;                       // one bit of a unit is inverted, in either direction
  double dup = 0;                        // a unit is duplicated, in either direction
  double error_reply = 0;                // a command of the tool gets an error reply and is not carried out
  int delay_ms = 0;                      // delay of each unit that the exchange sends
  std::optional<int> silent_after = {};  // units of the tool after which the line is dead both ways
  std::optional<int> hangup_after = {};  // units of the tool after which the exchange hangs up
};

/**
 * Parses a comma-separated list such as "drop=0.01,delay=20,silent-after=100". An error names the wrong item
 * and the reason.
 */
Result<FaultPlan> ParseFaultPlan(std::string_view text);

/**
 * Random decisions that are the same on every machine for the same seed: the standard specifies the generator
 * but not its distributions, so those are not used.
 */
class Chances {
 public:
  explicit Chances(std::uint64_t seed) : generator_(seed) {}

  bool Happens(double probability) {
    constexpr double kStep = 1.0 / 9007199254740992.0;  // 2 to the -53
    return static_cast<double>(generator_() >> 11) * kStep < probability;
  }
  /** A number from 0 to `count` - 1; `count` must be above 0. */
  std::size_t Pick(std::size_t count) { return static_cast<std::size_t>(generator_() % count); }

 private:
  std::mt19937_64 generator_;
};

}  // namespace tarvok::exchange
