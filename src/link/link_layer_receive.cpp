// The receiving side of the link: a state machine over the bytes from the exchange.

#include <array>
#include <string_view>
#include <utility>

#include "link/link_layer.h"

namespace tarvok::link {
namespace {

constexpr std::size_t kMaxDataLength = 65;  // the address and 64 bytes of message
constexpr std::size_t kMaxModemLine = 1000;
constexpr std::uint8_t kCr = 13;

constexpr std::pair<std::string_view, int> kModemWords[] = {
    {"CONNECT", ModemReply::kConnect},    {"BUSY", ModemReply::kBusy}, {"NO CARRIER", ModemReply::kNoCarrier},
    {"NO DIAL", ModemReply::kNoDialTone}, {"OK", ModemReply::kOk},
};

/** The result word of a modem's line, which begins with a line feed. */
int ModemResultOf(std::string_view line) {
  if (line.empty()) return ModemReply::kNone;
  for (const auto& [word, result] : kModemWords) {
    if (line.substr(1).starts_with(word)) return result;
  }
  return ModemReply::kNone;
}

}  // namespace

void LinkLayer::ReceiveByte(std::uint8_t byte) {
  if (dle_seen_) {
    dle_seen_ = false;
    ReceivePair(byte);
  } else if (state_ == State::kIdle && byte != kDle) {
    ReceiveText(byte);
  } else {
    ReceiveSingle(byte);
  }
}

void LinkLayer::ReceiveText(std::uint8_t byte) {
  if (byte != kCr) {
    if (modem_line_.size() >= kMaxModemLine) modem_line_.erase(0, 1);
    modem_line_ += static_cast<char>(byte);
    return;
  }
  parts_.log.DebugLine(modem_line_);
  const std::string line = std::exchange(modem_line_, {});
  parts_.modem.result = ModemResultOf(line);
  if (parts_.modem.result == ModemReply::kConnect) parts_.modem.connect_text = line;
}

void LinkLayer::ReceiveSingle(std::uint8_t byte) {
  switch (state_) {
    case State::kIdle:
      dle_seen_ = true;
      break;
    case State::kData:
      if (byte == kDle) {
        dle_seen_ = true;
      } else {
        StoreByte(byte, kMaxDataLength);
      }
      break;
    case State::kCheck:
      ReceiveCheck(byte);
      break;
    default:
      ReceiveAddress(byte);
      break;
  }
}

void LinkLayer::ReceivePair(std::uint8_t byte) {
  switch (byte) {
    case kDle:
      // Doubled bytes may exceed the limit of a frame's data; only the end of the buffer stops them.
      if (state_ == State::kData) StoreByte(byte, kMaxReceived);
      break;
    case kStx:
      if (rx_ready_) break;  // the previous message is still waiting: make the exchange repeat this frame
      state_ = State::kData;
      rx_length_ = 0;
      break;
    case kEtx:
      if (state_ == State::kData) {
        state_ = State::kCheck;
      } else {
        parts_.log.DebugLine("!ERROR: invalid data packet.");
      }
      break;
    case kAck0:
      state_ = State::kAck0Address;
      break;
    case kAck1:
      state_ = State::kAck1Address;
      break;
    case kNak:
      state_ = State::kNakAddress;
      break;
    case kEnq:
      state_ = State::kEnqAddress;
      break;
    default:
      Reset("!ERROR: invalid packet.");
      break;
  }
}

void LinkLayer::StoreByte(std::uint8_t byte, std::size_t limit) {
  if (rx_length_ >= limit) {
    Reset("!ERROR: packet very long.");
    return;
  }
  rx_buffer_[rx_length_++] = byte;
}

void LinkLayer::Reset(std::string_view log_line) {
  state_ = State::kIdle;
  rx_length_ = 0;
  parts_.log.DebugLine(log_line);
}

bool LinkLayer::AddressOk(std::uint8_t address) const {
  // Deliberately a floating-point division: 16 is the only byte that is accepted for the nibbles 1 and 0.
  const bool ok = address / 16.0 == first_nibble_ && address % 16 == second_nibble_;
  if (!ok) parts_.log.DebugLine("!Error: invalid address.");
  return ok;
}

bool LinkLayer::FrameCheckOk(std::uint8_t check) const {
  const auto data = std::span<const std::uint8_t>(rx_buffer_).first(rx_length_).subspan(1);
  return FrameCheck(rx_buffer_[0], data) == check;
}

void LinkLayer::LogReceived() {
  if (!parts_.log.debug()) return;
  parts_.log.Line("DLS RECV: " +
                  HexDump(std::span<const std::uint8_t>(rx_buffer_).first(rx_length_).subspan(1)));
}

void LinkLayer::ReceiveCheck(std::uint8_t check) {
  state_ = State::kIdle;
  if (!AddressOk(rx_buffer_[0])) return;
  if (rx_length_ == 0) {
    parts_.log.DebugLine("!Error: invalid packet size.");
  } else if (!FrameCheckOk(check)) {
    LogReceived();
    SendNak();
  } else if (rx_length_ == 1) {
    parts_.log.DebugLine("PCDLS: Establish.");
    rx_count_ = 0;
    tx_count_ = 0;
    link_up_ = true;
    SendAck();
  } else {
    LogReceived();
    ++rx_count_;
    rx_ready_ = true;
    SendAck();
    Poll();
  }
}

void LinkLayer::ReceiveAddress(std::uint8_t address) {
  const State awaited = std::exchange(state_, State::kIdle);
  if (!AddressOk(address)) return;
  switch (awaited) {
    case State::kAck0Address:
      parts_.log.DebugLine("PCDLS: Recv Ack0.");
      if (!link_up_) {
        parts_.log.DebugLine("PCDLS: Establish.");
        link_up_ = true;
      }
      AcknowledgedBy(false);
      break;
    case State::kAck1Address:
      parts_.log.DebugLine("PCDLS: Recv Ack1.");
      AcknowledgedBy(true);
      break;
    case State::kNakAddress:
      parts_.log.DebugLine("PCDLS: Recv Nak.");
      ++parts_.statistics.frames_damaged;
      if (!tx_done_) SendAgain();
      break;
    default:
      parts_.log.DebugLine("PCDLS: Recv Enq.");
      ++parts_.statistics.late_answers;
      SendAck();
      break;
  }
}

void LinkLayer::AcknowledgedBy(bool even_frames) {
  const bool is_even = tx_count_ % 2 == 0;
  if (is_even == even_frames) {
    tx_done_ = true;
  } else if (!tx_done_ && enq_pending_) {
    SendAgain();  // the reply to our Enq acknowledges the previous frame, so this one was lost
  }
  enq_pending_ = false;
}

void LinkLayer::SendAgain() {
  parts_.log.DebugLine("PCDLS: Send Again.");
  SendFrame();
}

}  // namespace tarvok::link
