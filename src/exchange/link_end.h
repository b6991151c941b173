#pragma once

#include <deque>
#include <optional>
#include <utility>

#include "exchange/message_end.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "link/frame.h"
#include "link/port.h"

namespace tarvok::exchange {

/**
 * The exchange's end of the byte-stuffed, acknowledged link: it sends with address 0x10 and accepts 0x01. In
 * both directions, the n-th frame, counting the Establish, is acknowledged with Ack0 for odd n and Ack1 for
 * even n; the exchange's first frame after an Establish is number 1. One frame is in flight; later ones wait.
 */
class LinkEnd : public MessageEnd {
 public:
  LinkEnd(EventServer& events, Port& port, Complain complain)
      : events_(events), port_(port), complain_(std::move(complain)) {}
  ~LinkEnd() override { events_.StopTimer(patience_); }
  LinkEnd(const LinkEnd&) = delete;
  LinkEnd& operator=(const LinkEnd&) = delete;

  void Send(std::span<const std::uint8_t> message) override;
  /** Takes bytes from the line, however they are split. */
  void Take(std::span<const std::uint8_t> bytes);

 private:
  enum class State { kIdle, kData, kCheck, kControlAddress };

  void TakeByte(std::uint8_t byte);
  void TakeSecond(std::uint8_t byte);
  void Store(std::uint8_t byte);
  void FinishFrame(std::uint8_t check);
  void FinishControl(std::uint8_t address);
  void TakeAck(bool is_ack0);
  void SendControl(std::uint8_t control);
  void SendAck() { SendControl(rx_count_ % 2 == 1 ? kAck0 : kAck1); }
  void SendNext();
  void SendInFlight();
  void OnPatienceEnded();

  EventServer& events_;
  Port& port_;
  Complain complain_;

  State state_ = State::kIdle;
  bool dle_seen_ = false;
  std::uint8_t control_ = 0;
  Bytes frame_;  // address byte and message of the frame being received

  bool established_ = false;
  unsigned rx_count_ = 0;
  unsigned tx_count_ = 0;
  std::optional<Bytes> in_flight_;
  std::deque<Bytes> waiting_;
  bool enq_pending_ = false;
  int tries_ = 0;
  EventServer::TimerId patience_ = 0;
};

}  // namespace tarvok::exchange
