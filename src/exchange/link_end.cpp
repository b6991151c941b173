#include "exchange/link_end.h"

#include <array>
#include <string>

namespace tarvok::exchange {
namespace {

/**
 * Well below the second after which the tool enquires. If both sides enquire at once, the tool may take the
 * reply for an acknowledgement of its next frame and send that frame twice; from then on, for the rest of the
 * session, there is one more reply than commands.
 */
constexpr int kFramePatience_ms = 300;
/** The number of enquiries for a frame before it is given up. */
constexpr int kMostTries = 20;

}  // namespace

void LinkEnd::Take(std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) TakeByte(byte);
}

void LinkEnd::TakeByte(std::uint8_t byte) {
  if (state_ == State::kCheck) {
    state_ = State::kIdle;
    FinishFrame(byte);
  } else if (state_ == State::kControlAddress) {
    state_ = State::kIdle;
    FinishControl(byte);
  } else if (dle_seen_) {
    dle_seen_ = false;
    TakeSecond(byte);
  } else if (byte == kDle) {
    dle_seen_ = true;
  } else if (state_ == State::kData) {
    Store(byte);
  }
  // Any other byte is noise between frames, such as leftovers of a modem.
}

void LinkEnd::TakeSecond(std::uint8_t byte) {
  switch (byte) {
    case kDle:
      if (state_ == State::kData) Store(byte);
      return;
    case kStx:
      state_ = State::kData;
      frame_.clear();
      return;
    case kEtx:
      if (state_ == State::kData) {
        state_ = State::kCheck;
      } else {
        complain_("the end of a frame without its start");
      }
      return;
    case kAck0:
    case kAck1:
    case kNak:
    case kEnq:
      state_ = State::kControlAddress;
      control_ = byte;
      return;
    default:
      state_ = State::kIdle;
      complain_("10H followed by a byte that means nothing there");
  }
}

void LinkEnd::Store(std::uint8_t byte) {
  if (frame_.size() > kMaxFrameData) {
    state_ = State::kIdle;
    complain_("a frame of more than 64 bytes");
    return;
  }
  frame_.push_back(byte);
}

void LinkEnd::FinishFrame(std::uint8_t check) {
  if (frame_.empty() || frame_[0] != kToolAddress) {
    complain_("a frame without the address 1");
    return;
  }
  const std::span<const std::uint8_t> data = std::span(frame_).subspan(1);
  if (FrameCheck(kToolAddress, data) != check) {
    complain_("a frame with a bad check byte");
    SendControl(kNak);
    return;
  }
  if (data.empty()) {  // Establish: everything starts again
    established_ = true;
    rx_count_ = 1;
    tx_count_ = 0;
    in_flight_.reset();
    waiting_.clear();
    events_.StopTimer(patience_);
    SendAck();
    return;
  }
  if (!established_) {
    complain_("a frame before the first Establish");
    return;
  }
  ++rx_count_;
  SendAck();
  const Bytes message(data.begin(), data.end());
  GiveMessage(message);
}

void LinkEnd::FinishControl(std::uint8_t address) {
  if (address != kToolAddress) {
    complain_("a control frame without the address 1");
    return;
  }
  if (control_ == kEnq) {
    if (established_) SendAck();
  } else if (control_ == kNak) {
    if (in_flight_) SendInFlight();
  } else {
    TakeAck(control_ == kAck0);
  }
}

void LinkEnd::TakeAck(bool is_ack0) {
  if (!in_flight_) return;
  if (is_ack0 == (tx_count_ % 2 == 1)) {
    events_.StopTimer(patience_);
    in_flight_.reset();
    SendNext();
  } else if (enq_pending_) {
    // The other side has only the previous frame: this one was lost.
    SendInFlight();
  }
}

void LinkEnd::SendControl(std::uint8_t control) {
  // The tool takes the byte after a control code as the address, whatever it is. Doubling 10H would leave it
  // with an extra 10H, and the next frame would be lost.
  const std::array<std::uint8_t, 3> bytes = {kDle, control, kExchangeAddress};
  port_.Send(bytes);
}

void LinkEnd::Send(std::span<const std::uint8_t> message) {
  waiting_.emplace_back(message.begin(), message.end());
  if (!in_flight_) SendNext();
}

void LinkEnd::SendNext() {
  if (waiting_.empty()) return;
  in_flight_ = std::move(waiting_.front());
  waiting_.pop_front();
  ++tx_count_;
  tries_ = 0;
  SendInFlight();
}

void LinkEnd::SendInFlight() {
  enq_pending_ = false;
  port_.Send(BuildFrame(kExchangeAddress, *in_flight_));
  events_.StopTimer(patience_);
  patience_ = events_.CallLater(kFramePatience_ms, [this] { OnPatienceEnded(); });
}

void LinkEnd::OnPatienceEnded() {
  if (++tries_ > kMostTries) {
    complain_("no answer to a frame, given up");
    in_flight_.reset();
    SendNext();
    return;
  }
  // Do not repeat the frame before the other side says that it lacks it: nobody checks for repeated frames,
  // and a repeated pack would spoil the section.
  enq_pending_ = true;
  // A receiver that mistook a damaged byte for a single 10H reads all control frames of this side, which
  // begin and end with 10H, shifted by one byte. Any other byte puts it back in step and does no harm
  // otherwise.
  const std::uint8_t no_dle = 0;
  if (tries_ > 1) port_.Send({&no_dle, 1});
  SendControl(kEnq);
  patience_ = events_.CallLater(kFramePatience_ms, [this] { OnPatienceEnded(); });
}

}  // namespace tarvok::exchange
