#pragma once

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "exchange/hex_text.h"
#include "exchange/practice_exchange.h"
#include "tests/floors.h"
#include "tests/hex.h"
#include "tests/matchers.h"
#include "tests/simulation/virtual_events.h"
#include "tests/simulation/virtual_line.h"

namespace tarvok::test {

inline constexpr const char* kOk = "21000080";
inline constexpr const char* kError = "2100008F";

/** Distinctive bytes: position and seed determine the value. */
inline Bytes Pattern(std::size_t size, unsigned seed = 7) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 31 + i / 256 + seed);
  return bytes;
}

inline LineConditions Faults(std::string_view text, std::uint64_t seed = 1) {
  return {.faults = ParseFaultPlan(text).value(), .seed = seed};
}

/** A practice exchange with one connected tool, played by the test. Time is virtual. */
class PracticeBench {
 public:
  explicit PracticeBench(Wire wire = Wire::kLan, int version = 110, const LineConditions& conditions = {})
      : memory(version),
        exchange(events, memory, conditions,
                 [this](std::string_view line) { complaints.emplace_back(line); }),
        line_(events),
        tool(*line_.tool) {
    tool.set_on_bytes([this](std::span<const std::uint8_t> bytes) {
      for (const std::uint8_t byte : bytes) came.push_back(byte);
      arrivals_ms.push_back(events.Tick_ms());
    });
    exchange.Accept(std::move(line_.exchange), wire, [this] { ended = true; });
  }

  /** Sends the bytes, serves events for a while and returns what was received, as hexadecimal text. */
  std::string Ask(const Bytes& bytes, int wait_ms = 10) {
    came.clear();
    tool.Send(bytes);
    events.Run(wait_ms);
    return HexText(came);
  }
  std::string Ask(std::string_view hex, int wait_ms = 10) { return Ask(Hex(hex), wait_ms); }

  /** Sets the mode and gives the password; both must be accepted. */
  void Enter(int mode, std::string_view password = "1234FF") {
    EXPECT_EQ(Ask("12FF000A0" + std::to_string(mode)), kOk);
    EXPECT_EQ(Ask("12FF000C" + std::string(password)), kOk);
  }

  /** The packs of a data message as the tool sends them. */
  static std::vector<Bytes> Packs(std::uint8_t code, int number, const Bytes& data) {
    std::vector<Bytes> packs;
    const auto byte = [](std::size_t value) { return static_cast<std::uint8_t>(value % 256); };
    const auto section = static_cast<std::size_t>(number);
    const std::size_t size = data.size();
    Bytes pack = {0x12, 0xFF, 0, code, 0, byte(section), byte(section / 256), byte(size), byte(size / 256)};
    for (std::size_t at = 0; packs.empty() || at < data.size();) {
      while (pack.size() < 64 && at < data.size()) pack.push_back(data[at++]);
      packs.push_back(pack);
      pack = {0x12, 0xFF, 0, 0x0E, byte(packs.size())};
    }
    return packs;
  }
  VirtualEvents events;
  ExchangeMemory memory;
  std::vector<std::string> complaints;
  bool ended = false;
  Bytes came;
  std::vector<std::int64_t> arrivals_ms;
  PracticeExchange exchange;

 private:
  VirtualLine line_;

 public:
  VirtualPort& tool;
};

}  // namespace tarvok::test
