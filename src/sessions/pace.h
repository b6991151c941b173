#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "link/statistics.h"
#include "link/waits.h"
#include "sessions/session_view.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * Speed and progress of a transfer as text for the user: bytes done, bytes per second, the share of the
 * serial line in use, and the time left at the speed so far. Each byte of the configuration counts once,
 * whatever frames and repeats it took. Times are in milliseconds of the event server's tick.
 */
class Pace {
 public:
  /** `line_bps` is the speed of the serial line, or 0 if there is none to compare with. */
  Pace(std::int64_t total_bytes, int line_bps, std::int64_t start_ms)
      : total_bytes_(total_bytes), line_bps_(line_bps), start_ms_(start_ms), moved_ms_(start_ms) {}

  /**
   * "20,480 of 81,920 bytes, 650 bytes/s, about 1:34 left"; speed and time are left out during the first
   * second and before the first byte.
   */
  std::string Now(std::int64_t done_bytes, std::int64_t tick_ms) const;
  /** True once, when there has been no progress for longer than the retries of a message take. */
  bool FallsSilent(std::int64_t done_bytes, std::int64_t tick_ms);
  /** "81,920 bytes in 2:06: 650 bytes/s, 67.7 % of the line", and an explanation if the share is low. */
  std::string End(std::int64_t done_bytes, std::int64_t tick_ms) const;

 private:
  std::int64_t total_bytes_;
  int line_bps_;
  std::int64_t start_ms_;
  std::int64_t moved_bytes_ = 0;  // progress when it last increased,
  std::int64_t moved_ms_;         // and the time of that increase
  bool silent_ = false;
};

/** The clock of a session: shows each second how long it has run and how fast a transfer goes. */
class PaceMeter {
 public:
  /** `line_bps` is the speed of the serial line, or 0 if it is unknown. */
  PaceMeter(Waits& waits, SessionView& view, const TransferStatistics& counted, int line_bps)
      : waits_(waits), view_(view), counted_(counted), line_bps_(line_bps) {}

  /** Starts the clock at 0 when a session begins. */
  void Start();
  /** Stops it. A transfer that did not complete has no pace. */
  void Stop();
  bool is_running() const { return timer_ != 0; }

  /**
   * From now on the view shows how fast `bytes` get through: payload of outgoing messages plus bytes of
   * incoming sections. It also advises the user if nothing gets through for long.
   */
  void BeginTransfer(std::int64_t bytes);
  /** Call when all is through: the view shows the speed and the share of the line. */
  void EndTransfer();

 private:
  void OnSecond();
  std::int64_t BytesThrough() const;
  std::int64_t Tick_ms() { return waits_.events().Tick_ms(); }

  Waits& waits_;
  SessionView& view_;
  const TransferStatistics& counted_;
  int line_bps_;
  EventServer::TimerId timer_ = 0;
  int elapsed_s_ = 0;
  std::optional<Pace> pace_;
  std::int64_t bytes_before_ = 0;
};

/** Minutes and seconds, such as "2:06". */
std::string MinutesText(std::int64_t seconds);

}  // namespace tarvok::sessions
