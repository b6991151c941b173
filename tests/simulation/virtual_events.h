#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

#include "link/event_server.h"
#include "tests/floors.h"

namespace tarvok::test {

/**
 * An EventServer on a clock of its own, which stands still while handlers run and jumps to the next event
 * while somebody serves. Events of one moment run in the order in which they were asked for, so that a run
 * repeats exactly.
 *
 * As with Qt's loop, a timer does not run again while its own handler serves events, and ticks missed
 * meanwhile are not made up for.
 */
class VirtualEvents : public EventServer {
 public:
  /** Virtual time after which a wait without limit gives up, so that a test can't hang. */
  static constexpr std::int64_t kDefaultLimit_ms = 24LL * 3600 * 1000;

  explicit VirtualEvents(std::int64_t limit_ms = kDefaultLimit_ms) : limit_ms_(limit_ms) {}

  std::int64_t Tick_ms() override { return now_ms_; }
  WallClock Now() override { return wall_clock_; }
  TimerId StartTimer(int interval_ms, std::function<void()> handler) override;
  TimerId CallLater(int delay_ms, std::function<void()> handler) override;
  void StopTimer(TimerId timer) override;
  bool ServeUntil(const std::function<bool()>& done, std::int64_t timeout_ms) override;

  /** Serves events for that long. */
  void Run(std::int64_t duration_ms) {
    ServeUntil([] { return false; }, duration_ms);
  }
  void set_now(const WallClock& now) { wall_clock_ = now; }
  /** Whether a wait without limit outlived the limit or had nothing left to wait for, or handlers called each
   * other for ever without time passing. */
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
  std::map<std::pair<std::int64_t, std::uint64_t>, TimerId> queue_;  // by due time, then by order of asking
};

}  // namespace tarvok::test
