#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "exchange/port_on_port.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "link/frame.h"

namespace tarvok::exchange {

/**
 * Bytes travelling over a serial line: each takes ten bits, and a burst begins with the first byte that finds
 * the line idle. The time of each byte counts from the start of its burst, so that rounding to milliseconds
 * does not add up.
 */
class PacedLane {
 public:
  using Give = std::function<void(std::span<const std::uint8_t>)>;

  PacedLane(EventServer& events, int speed_bps, Give give)
      : events_(events), speed_bps_(speed_bps), give_(std::move(give)) {}
  ~PacedLane() { events_.StopTimer(timer_); }
  PacedLane(const PacedLane&) = delete;
  PacedLane& operator=(const PacedLane&) = delete;

  void Add(std::span<const std::uint8_t> bytes);
  void Clear();
  bool idle() const { return given_ == burst_.size(); }

 private:
  void WaitForNext();
  void OnTime();

  EventServer& events_;
  int speed_bps_;
  Give give_;
  Bytes burst_;
  std::size_t given_ = 0;
  std::int64_t start_ms_ = 0;
  EventServer::TimerId timer_ = 0;
};

/** A port whose bytes take as long as on a serial line, in both directions. */
class PacedPort : public PortOnPort {
 public:
  PacedPort(EventServer& events, std::unique_ptr<Port> inner, int speed_bps);

  bool Send(std::span<const std::uint8_t> bytes) override;
  void Discard() override;
  void Close() override;

 protected:
  void OnBytes(std::span<const std::uint8_t> bytes) override { in_.Add(bytes); }
  void OnClosed(std::string_view reason) override;

 private:
  void GiveArrived(std::span<const std::uint8_t> bytes);

  PacedLane in_;
  PacedLane out_;
  std::optional<std::string> closed_reason_;  // reported after the last byte received
};

}  // namespace tarvok::exchange
