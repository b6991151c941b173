#include "link/link_layer.h"

#include <algorithm>

namespace tarvok::link {
namespace {

constexpr std::int64_t kEstablishWait_ms = 3000;
constexpr int kTick_ms = 10;
constexpr int kChaseAbove_ms = 1000;
constexpr int kMostRetries = 5;  // the sixth Enq is still sent

}  // namespace

void LinkLayer::Init(std::uint8_t first_nibble, std::uint8_t second_nibble) {
  first_nibble_ = first_nibble;
  second_nibble_ = second_nibble;
  tx_count_ = 0;
  rx_count_ = 0;
  tx_done_ = true;
  enq_pending_ = false;
  retry_timer_ = 0;
  retry_count_ = 0;
  tx_failed_ = false;
  state_ = State::kIdle;
  rx_length_ = 0;
  dle_seen_ = false;
  rx_ready_ = false;
  link_up_ = false;
  modem_line_.clear();
  parts_.statistics = {};
}

bool LinkLayer::Establish() {
  tx_length_ = 0;
  rx_count_ = 0;
  tx_count_ = 1;
  parts_.log.DebugLine("Send Establish.");
  SendFrame();
  parts_.waits.Until([&] { return link_up_; }, kEstablishWait_ms);
  if (parts_.waits.aborted()) return false;
  return parts_.works_without_link() || link_up_;
}

void LinkLayer::SendData(std::span<const std::uint8_t> message) {
  tx_length_ = std::min(message.size(), tx_buffer_.size());
  std::copy_n(message.begin(), tx_length_, tx_buffer_.begin());
  retry_timer_ = 0;
  retry_count_ = 0;
  tx_done_ = false;
  ++tx_count_;
  SendFrame();
  if (parts_.log.debug()) parts_.log.Line("DLS SEND: " + HexDump(std::span(tx_buffer_).first(tx_length_)));
}

void LinkLayer::SendFrame() {
  const auto message = std::span<const std::uint8_t>(tx_buffer_).first(tx_length_);
  if (!UsesFrames(parts_.line.mode())) {
    parts_.line.PhysicalSend(message);
  } else {
    const auto address = static_cast<std::uint8_t>(first_nibble_ + 16 * second_nibble_);
    parts_.line.PhysicalSend(BuildFrame(address, message));
  }
  retry_timer_ = 0;
}

void LinkLayer::Poll() {
  Tick();
  std::array<std::uint8_t, kMaxReceived> message;
  const std::size_t length = TakeMessage(message);
  if (length > 0) parts_.on_message(std::span<const std::uint8_t>(message).first(length));
}

void LinkLayer::Tick() {
  if (tx_done_) return;
  retry_timer_ += kTick_ms;
  if (retry_timer_ <= kChaseAbove_ms) return;
  retry_timer_ = 0;
  if (retry_count_ <= kMostRetries) {
    ++retry_count_;
    SendEnq();
  } else {
    // Give up silently: the message layer notices by its own timeouts.
    tx_failed_ = true;
    tx_done_ = true;
  }
}

std::size_t LinkLayer::TakeMessage(std::span<std::uint8_t> message) {
  if (!rx_ready_) return 0;
  const std::size_t length = rx_length_ == 0 ? 0 : rx_length_ - 1;
  std::copy_n(rx_buffer_.begin() + 1, length, message.begin());
  rx_length_ = 0;
  rx_ready_ = false;
  return length;
}

void LinkLayer::SendControl(std::uint8_t control, std::string_view log_line) {
  parts_.log.DebugLine(log_line);
  const auto address = static_cast<std::uint8_t>(first_nibble_ + 16 * second_nibble_);
  parts_.line.PhysicalSend(BuildControl(control, address));
}

void LinkLayer::SendAck() {
  if (rx_count_ % 2 == 0) {
    SendControl(kAck1, "PCDLS: Send Ack1.");
  } else {
    SendControl(kAck0, "PCDLS: Send Ack0.");
  }
}

void LinkLayer::SendNak() {
  ++parts_.statistics.frames_damaged;
  SendControl(kNak, "PCDLS: Send Nak.");
}

void LinkLayer::SendEnq() {
  enq_pending_ = true;
  ++parts_.statistics.late_answers;
  SendControl(kEnq, "PCDLS: Send Enq.");
}

}  // namespace tarvok::link
