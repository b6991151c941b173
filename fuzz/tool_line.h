#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "fuzz/demand.h"
#include "fuzz/fed_port.h"
#include "link/exchange_line.h"
#include "tests/floors.h"
#include "tests/simulation/virtual_events.h"

namespace tarvok::fuzz {

/**
 * The tool's end of a line, fed by hand: no timer runs, and every block that it sends must be readable for an
 * exchange.
 */
class ToolLine {
 public:
  /** `trace` writes the history as the debug switch does. */
  ToolLine(LinkMode mode, bool trace)
      : log_(trace ? SendLog([](std::string_view line) { Demand(!line.empty()); }) : SendLog()),
        line_({.mode = mode}, waits_, log_, [] { return true; }) {
    log_.set_debug(trace);
    line_.Take(std::make_unique<FedPort>(feeder_));
    line_.link().Init(1, 0);
  }

  void Give(std::span<const std::uint8_t> bytes) { feeder_.Give(bytes); }
  /** Called after each block that the tool sends. */
  void set_on_sent(std::function<void()> handler) { on_sent_ = std::move(handler); }
  /** The number of blocks that the tool has sent. */
  std::size_t sent() const { return sent_; }

  VirtualEvents& events() { return events_; }
  LinkLayer& link() { return line_.link(); }
  MessageLayer& messages() { return line_.messages(); }
  const ModemReply& modem() { return line_.modem(); }

 private:
  static void JudgeMessage(std::span<const std::uint8_t> message) {
    Demand(message.size() >= kHeader && message.size() <= kMaxMessage && message[0] == kFromTool);
  }

  static void JudgeFrame(std::span<const std::uint8_t> block) {
    Demand(block.size() >= 3 && block[0] == kDle && block[2] == kToolAddress);
    if (block[1] != kStx) {
      constexpr std::uint8_t kControls[] = {kAck0, kAck1, kNak, kEnq};
      Demand(block.size() == 3 && std::ranges::find(kControls, block[1]) != std::end(kControls));
      return;
    }
    Bytes message;
    std::size_t at = 3;
    for (; at + 1 < block.size() && (block[at] != kDle || block[at + 1] == kDle); ++at) {
      if (block[at] == kDle) ++at;
      message.push_back(block[at]);
    }
    Demand(at + 3 == block.size() && block[at] == kDle && block[at + 1] == kEtx);
    Demand(block[at + 2] == FrameCheck(kToolAddress, message));
    JudgeMessage(message);
  }

  void Judge(std::span<const std::uint8_t> block) {
    ++sent_;
    if (UsesFrames(line_.mode())) {
      JudgeFrame(block);
    } else if (line_.mode() == LinkMode::kLan) {
      JudgeMessage(block);
    } else {
      Demand(block.size() == kServerPacketOut && block[0] == kFromExchange && block[4] <= kMaxMessage);
      JudgeMessage(block.subspan(kServerHeaderOut, block[4]));
    }
    if (on_sent_) on_sent_();
  }

  VirtualEvents events_;
  Waits waits_{events_};
  SendLog log_;
  FedPort::Feeder feeder_{[this](std::span<const std::uint8_t> block) { Judge(block); }};
  std::function<void()> on_sent_;
  std::size_t sent_ = 0;
  ExchangeLine line_;
};

}  // namespace tarvok::fuzz
