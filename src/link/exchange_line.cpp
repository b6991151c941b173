#include "link/exchange_line.h"

#include <utility>

namespace tarvok::link {
namespace {

constexpr int kPumpInterval_ms = 10;

}  // namespace

ExchangeLine::ExchangeLine(const Settings& settings, Waits& waits, SendLog& log,
                           std::function<bool()> works_without_link)
    : waits_(waits),
      log_(log),
      line_(settings.mode, settings.serial_chunk_size, log),
      link_({.line = line_,
             .waits = waits,
             .log = log,
             .statistics = statistics_,
             .modem = modem_,
             .works_without_link = std::move(works_without_link),
             .on_message =
                 [this](std::span<const std::uint8_t> message) { messages_->ReceiveMessage(message); }}),
      messages_(MakeMessages(settings.address)),
      lan_reader_([this] { return messages_->MissingBytes(); }) {}

std::unique_ptr<MessageLayer> ExchangeLine::MakeMessages(const ExchangeAddress& address) {
  const MessageLayer::Parts parts{waits_, log_, statistics_, address};
  if (TransportOf(line_.mode()).wire == Wire::kServer) return std::make_unique<ServerMessages>(parts, line_);
  return std::make_unique<SerialMessages>(parts, link_);
}

void ExchangeLine::Take(std::unique_ptr<Port> port) {
  port->set_on_bytes([this](std::span<const std::uint8_t> bytes) { Receive(bytes); });
  ended_.reset();
  port->set_on_closed([this](std::string_view reason) {
    ended_ = reason;
    if (on_ended_) on_ended_(reason);
  });
  line_.Take(std::move(port));
}

void ExchangeLine::Receive(std::span<const std::uint8_t> bytes) {
  if (UsesFrames(line_.mode())) {
    for (const std::uint8_t byte : bytes) link_.ReceiveByte(byte);
    return;
  }
  const auto take = [this](std::span<const std::uint8_t> message) { messages_->ReceiveMessage(message); };
  const std::int64_t tick_ms = waits_.events().Tick_ms();
  if (TransportOf(line_.mode()).wire == Wire::kLan) {
    if (log_.debug()) log_.Line("Recv: " + HexDump(bytes));
    if (!lan_reader_.Feed(bytes, tick_ms, take)) ++statistics_.broken_off;
  } else if (!server_reader_.Feed(bytes, tick_ms, take)) {
    ++statistics_.broken_off;
  }
}

void ExchangeLine::StartPump() {
  if (pump_ != 0 || !UsesFrames(line_.mode())) return;
  pump_ = waits_.events().StartTimer(kPumpInterval_ms, [this] { link_.Poll(); });
}

void ExchangeLine::StopPump() {
  waits_.events().StopTimer(std::exchange(pump_, 0));
}

void ExchangeLine::Close() {
  StopPump();
  line_.Close();
}

}  // namespace tarvok::link
