#pragma once

#include <functional>
#include <utility>

#include "exchange/message_end.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "link/frame.h"
#include "link/port.h"

namespace tarvok::exchange {

/**
 * The exchange's end of a TCP stream: collects bytes until a unit is complete, however they are split. A unit
 * that is incomplete after a second is taken as it is, so that the sender gets an error reply.
 */
class StreamEnd : public MessageEnd {
 public:
  StreamEnd(EventServer& events, Port& port, Complain complain)
      : port_(port), complain_(std::move(complain)), events_(events) {}
  ~StreamEnd() override { events_.StopTimer(patience_); }
  StreamEnd(const StreamEnd&) = delete;
  StreamEnd& operator=(const StreamEnd&) = delete;

  void Take(std::span<const std::uint8_t> bytes);

 protected:
  /**
   * The size of the unit at the start of the stream, which begins correctly. If that takes more bytes to say,
   * a size that the stream has not reached.
   */
  virtual std::size_t UnitSize(std::span<const std::uint8_t> stream) const = 0;
  /** Takes a unit, even an invalid one. */
  virtual void TakeUnit(std::span<const std::uint8_t> unit) = 0;
  /** The first byte of every unit. */
  virtual std::uint8_t FirstByte() const = 0;

  Port& port_;
  Complain complain_;

 private:
  void TakeFront(std::size_t size);

  EventServer& events_;
  Bytes stream_;
  EventServer::TimerId patience_ = 0;
};

/** Bare messages in sequence, cut by the length that belongs to each code. */
class LanEnd : public StreamEnd {
 public:
  using StreamEnd::StreamEnd;

  void Send(std::span<const std::uint8_t> message) override { port_.Send(message); }
  /** `payload` returns the payload size of the later pack with that sequence byte; negative if unknown. */
  void set_pack_payload(std::function<int(std::uint8_t)> payload) { pack_payload_ = std::move(payload); }

 protected:
  std::size_t UnitSize(std::span<const std::uint8_t> stream) const override;
  void TakeUnit(std::span<const std::uint8_t> unit) override { GiveMessage(unit); }
  std::uint8_t FirstByte() const override;

 private:
  std::function<int(std::uint8_t)> pack_payload_;
};

/**
 * Packets as the relay server passes them on: 129 bytes each from the tool; a head of 8 bytes and the message
 * to the tool.
 */
class ServerEnd : public StreamEnd {
 public:
  using StreamEnd::StreamEnd;

  void Send(std::span<const std::uint8_t> message) override;

 protected:
  std::size_t UnitSize(std::span<const std::uint8_t> stream) const override;
  void TakeUnit(std::span<const std::uint8_t> unit) override;
  std::uint8_t FirstByte() const override;
};

}  // namespace tarvok::exchange
