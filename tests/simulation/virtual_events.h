#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

#include "link/event_server.h"
#include "tests/floors.h"

namespace tarvok::test {

/**
 * An EventServer with a virtual clock, which stands still while handlers run and jumps to the next event
 * while events are served. Events due at the same moment run in the order of their requests, so that a run
 * repeats exactly.
 *
 * As with Qt's loop, a timer does not fire again while its own handler serves events, and ticks missed
 * meanwhile are lost.
 */
class VirtualEvents : public EventServer {
 public:
  /** Virtual time after which a wait without a limit gives up, so that a test cannot hang. */
  static constexpr std::int64_t kDefaultLimit_ms = 24LL * 3600 * 1000;

  explicit VirtualEvents(std::int64_t limit_ms = kDefaultLimit_ms) : limit_ms_(limit_ms) {}

  std::int64_t Tick_ms() override { return now_ms_; }
  WallClock Now() override { return wall_clock_; }
  TimerId StartTimer(int interval_ms, std::function<void()> handler) override;
  TimerId CallLater(int delay_ms, std::function<void()> handler) override;
  void StopTimer(TimerId timer) override;
  bool ServeUntil(const std::function<bool()>& done, std::int64_t timeout_ms) override;

  /** Serves events for the given time. */
  void Run(std::int64_t duration_ms) {
    ServeUntil([] { return false; }, duration_ms);
  }
  void set_now(const WallClock& now) { wall_clock_ = now; }
  /**
   * True if a wait without a limit exceeded the limit or had nothing left to wait for, or if handlers called
   * each other endlessly without time passing.
   */
  bool gave_up() const { return gave_up_; }

 private:
  struct Timer {
    std::function<void()> handler;
    std::int64_t due_ms = 0;
    std::uint64_t order = 0;
    int interval_ms = 0;  // 0: runs once
  };

  TimerId Add(int delay_ms, int interval_ms, std::function<void()> handler);
  void Schedule(TimerId id, std::int64_t due_ms);
  void RunTimer(TimerId id);

  std::int64_t limit_ms_;
  std::int64_t now_ms_ = 0;
  WallClock wall_clock_;
  bool gave_up_ = false;
  int events_at_now_ = 0;
  TimerId last_id_ = 0;
  std::uint64_t last_order_ = 0;
  std::map<TimerId, Timer> timers_;
  std::map<std::pair<std::int64_t, std::uint64_t>, TimerId> queue_;  // by due time, then by order of request
};

}  // namespace tarvok::test
