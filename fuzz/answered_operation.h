#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <span>

#include "fuzz/tool_line.h"
#include "tests/floors.h"

namespace tarvok::fuzz {

/** An operation that waits for the exchange, and the condition that its success must have established. */
struct Operation {
  bool (*run)(MessageLayer& messages);
  bool MessageState::*awaited;
};

inline constexpr int kAskedSection = 4;
inline constexpr Operation kOperations[] = {
    {[](MessageLayer& messages) { return messages.GetConfig(kAskedSection); }, &MessageState::config_came},
    {[](MessageLayer& messages) { return messages.SendIdle(); }, &MessageState::reply_ok},
    {[](MessageLayer& messages) { return messages.SendSetMode(ExchangeMode::kBilling); },
     &MessageState::reply_ok},
    {[](MessageLayer& messages) { return messages.SendTime(); }, &MessageState::reply_ok},
    {[](MessageLayer& messages) { return messages.GetVersion(); }, &MessageState::version_came},
    {[](MessageLayer& messages) {
       return messages.CheckPassword({0x12, 0x34, 0xFF});
     },
     &MessageState::reply_ok},
    {[](MessageLayer& messages) {
       return messages.SendConfig(kAskedSection, std::array<std::uint8_t, 130>{});
     },
     &MessageState::reply_ok},
    {[](MessageLayer& messages) { return messages.SendBillingTable(1, 0, std::array<std::uint8_t, 70>{}); },
     &MessageState::reply_ok},
    {[](MessageLayer& messages) { return messages.SendMiniBar(300, std::array<std::uint8_t, 32>{}); },
     &MessageState::reply_ok},
};

/**
 * Runs an operation twice on a line whose other end answers with the input, one piece for each block that the
 * tool sends, and delivers the rest afterwards. As in a session, something may arrive before the operation.
 * Bytes 0 to 2 select the operation and whether it is traced, the length of the pieces, and the delay of the
 * answers.
 */
inline void RunAnswered(LinkMode mode, std::span<const std::uint8_t> input) {
  constexpr std::size_t kHead = 3;
  constexpr std::uint8_t kTraced = 0x80;
  if (input.size() < kHead) return;
  const Operation& operation = kOperations[input[0] % kTraced % std::size(kOperations)];
  const std::size_t piece = 1 + input[1] % 200;
  const int delay_ms = input[2] * 20;  // a reply may be later than any wait
  std::span<const std::uint8_t> rest = input.subspan(kHead);

  ToolLine line(mode, input[0] >= kTraced);
  line.set_on_sent([&] {
    if (rest.empty()) return;
    const auto front = rest.first(std::min(piece, rest.size()));
    rest = rest.subspan(front.size());
    line.events().CallLater(delay_ms, [&line, front] { line.Give(front); });
  });
  MessageState& state = line.messages().state();
  const auto judge = [&] {
    Demand(line.messages().MissingBytes() >= 0 && line.messages().MissingBytes() <= state.received_size);
    Demand(!line.messages().IsWhole() || state.receive_offset >= state.received_size);
    Demand(state.received_size <= 0xFFFF && state.mini_bar_name.size() <= 20 &&
           state.mini_bar_count <= 0xFFFF);
  };
  for (int time = 0; time < 2; ++time) {
    state.section_done = false;
    line.events().Run(delay_ms);
    const bool done = operation.run(line.messages());
    Demand(!done || state.*operation.awaited);
    judge();
  }
  Demand(!line.events().gave_up());

  line.set_on_sent({});
  line.events().Run(2 * delay_ms);
  ForEachPiece(rest, piece, [&](std::span<const std::uint8_t> front) {
    line.Give(front);
    line.events().Run(delay_ms);
    judge();
  });
}

}  // namespace tarvok::fuzz
