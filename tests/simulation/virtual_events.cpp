#include "tests/simulation/virtual_events.h"

#include <algorithm>

#include "tests/floors.h"

namespace tarvok::test {
namespace {

/** More events than this at one moment mean handlers that call each other endlessly. */
constexpr int kMostEventsAtOnce = 2'000'000;

}  // namespace

EventServer::TimerId VirtualEvents::StartTimer(int interval_ms, std::function<void()> handler) {
  return Add(std::max(interval_ms, 1), std::max(interval_ms, 1), std::move(handler));
}

EventServer::TimerId VirtualEvents::CallLater(int delay_ms, std::function<void()> handler) {
  return Add(std::max(delay_ms, 0), 0, std::move(handler));
}

EventServer::TimerId VirtualEvents::Add(int delay_ms, int interval_ms, std::function<void()> handler) {
  const TimerId id = ++last_id_;
  timers_[id] = {.handler = std::move(handler), .interval_ms = interval_ms};
  Schedule(id, now_ms_ + delay_ms);
  return id;
}

void VirtualEvents::Schedule(TimerId id, std::int64_t due_ms) {
  Timer& timer = timers_[id];
  timer.due_ms = due_ms;
  timer.order = ++last_order_;
  queue_[{timer.due_ms, timer.order}] = id;
}

void VirtualEvents::StopTimer(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  queue_.erase({found->second.due_ms, found->second.order});
  timers_.erase(found);
}

bool VirtualEvents::ServeUntil(const std::function<bool()>& done, std::int64_t timeout_ms) {
  const bool forever = timeout_ms < 0;
  const std::int64_t deadline_ms = forever ? limit_ms_ : now_ms_ + timeout_ms;
  while (!done()) {
    const auto next = queue_.begin();
    if (next == queue_.end() || next->first.first > deadline_ms || events_at_now_ > kMostEventsAtOnce) {
      if (forever || events_at_now_ > kMostEventsAtOnce) gave_up_ = true;
      if (!forever && now_ms_ < deadline_ms) {
        now_ms_ = deadline_ms;
        events_at_now_ = 0;
      }
      return done();
    }
    if (next->first.first > now_ms_) {
      now_ms_ = next->first.first;
      events_at_now_ = 0;
    }
    ++events_at_now_;
    const TimerId id = next->second;
    queue_.erase(next);
    RunTimer(id);
  }
  return true;
}

void VirtualEvents::RunTimer(TimerId id) {
  const auto found = timers_.find(id);
  if (found == timers_.end()) return;
  if (found->second.interval_ms == 0) {
    const std::function<void()> handler = std::move(found->second.handler);
    timers_.erase(found);
    handler();
    return;
  }
  // The handler may stop its own timer, so run a copy and look up the timer again afterwards.
  const std::function<void()> handler = found->second.handler;
  handler();
  const auto still = timers_.find(id);
  if (still == timers_.end()) return;
  const Timer& timer = still->second;
  const std::int64_t missed = (now_ms_ - timer.due_ms) / timer.interval_ms;
  Schedule(id, timer.due_ms + (missed + 1) * timer.interval_ms);
}

}  // namespace tarvok::test
