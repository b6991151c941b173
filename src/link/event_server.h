#pragma once

#include <cstdint>
#include <functional>

#include "link/uses.h"

namespace tarvok::link {

/** Local calendar time, for the exchange's clock and for logs. */
struct WallClock {
  int year = 2000;
  int month = 1;    // 1 to 12
  int day = 1;      // 1 to 31
  int hour = 0;     // 0 to 23
  int minute = 0;   // 0 to 59
  int weekday = 0;  // 0 to 6, Sunday 0
};

/**
 * Tick, timers and "serve events until ...": every wait goes through here. Single-threaded; handlers run
 * while events are served, also from nested calls. The programs use Qt's loop, the tests a virtual clock that
 * jumps to the next event.
 */
class EventServer {
 public:
  using TimerId = int;
  static constexpr std::int64_t kForever = -1;

  virtual ~EventServer() = default;

  /** A monotonic tick in milliseconds. */
  virtual std::int64_t Tick_ms() = 0;
  virtual WallClock Now() = 0;

  /** Calls `handler` every `interval_ms`, first after one interval, until StopTimer. Ids are above 0. */
  virtual TimerId StartTimer(int interval_ms, std::function<void()> handler) = 0;
  /** Calls `handler` once after `delay_ms`, unless StopTimer cancels it. */
  virtual TimerId CallLater(int delay_ms, std::function<void()> handler) = 0;
  /** Stops the timer; its handler is not called again. An id that is not running is ignored. */
  virtual void StopTimer(TimerId timer) = 0;

  /**
   * Serves events until `done` returns true, tested after each event, or until `timeout_ms` have passed
   * (kForever: no limit). Returns the last result of `done`.
   */
  virtual bool ServeUntil(const std::function<bool()>& done, std::int64_t timeout_ms) = 0;
};

}  // namespace tarvok::link
