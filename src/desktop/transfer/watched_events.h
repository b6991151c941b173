#pragma once

#include <functional>
#include <utility>

#include "desktop/uses.h"
#include "link/event_server.h"

namespace tarvok::desktop {

/** Passes everything on, and knows whether the innermost wait has a time limit. In a wait without one the
 * user must be able to close the form. */
class WatchedEvents : public EventServer {
 public:
  explicit WatchedEvents(EventServer& events) : events_(events) {}

  std::int64_t Tick_ms() override { return events_.Tick_ms(); }
  WallClock Now() override { return events_.Now(); }
  TimerId StartTimer(int interval_ms, std::function<void()> handler) override {
    return events_.StartTimer(interval_ms, std::move(handler));
  }
  TimerId CallLater(int delay_ms, std::function<void()> handler) override {
    return events_.CallLater(delay_ms, std::move(handler));
  }
  void StopTimer(TimerId timer) override { events_.StopTimer(timer); }
  bool ServeUntil(const std::function<bool()>& done, std::int64_t timeout_ms) override {
    const bool outer = std::exchange(waits_for_ever_, timeout_ms < 0);
    const bool result = events_.ServeUntil(done, timeout_ms);
    waits_for_ever_ = outer;
    return result;
  }

  bool waits_for_ever() const { return waits_for_ever_; }

 private:
  EventServer& events_;
  bool waits_for_ever_ = false;
};

}  // namespace tarvok::desktop
