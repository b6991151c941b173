#pragma once

#include <cstdint>
#include <utility>

#include "link/event_server.h"
#include "link/uses.h"

namespace tarvok::link {

/**
 * How a session waits: serves events until the flag is set, the time has run out or the session was aborted.
 * After Abort every wait returns false at once, so that the session unwinds.
 */
class Waits {
 public:
  explicit Waits(EventServer& events) : events_(events) {}

  /** True if `flag` returned true; false if the time ran out or the session was aborted. */
  template <typename Flag>
  bool Until(Flag&& flag, std::int64_t timeout_ms) {
    const bool outer = std::exchange(without_end_, timeout_ms == EventServer::kForever);
    events_.ServeUntil([&] { return aborted_ || flag(); }, timeout_ms);
    without_end_ = outer;
    return !aborted_ && flag();
  }

  /** False if the session was aborted meanwhile. */
  bool WaitSeconds(double seconds) {
    Until([] { return false; }, static_cast<std::int64_t>(seconds * 1000));
    return !aborted_;
  }

  void Abort() { aborted_ = true; }
  /** Makes waits work again, for the last messages that a closing form sends to the exchange. */
  void ClearAbort() { aborted_ = false; }
  bool aborted() const { return aborted_; }
  /** True while a wait without a time limit is running; only its flag or Abort ends it. */
  bool without_end() const { return without_end_; }
  EventServer& events() { return events_; }

 private:
  EventServer& events_;
  bool aborted_ = false;
  bool without_end_ = false;
};

}  // namespace tarvok::link
