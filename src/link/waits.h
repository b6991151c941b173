#pragma once

#include <cstdint>
#include <utility>

#include "link/event_server.h"
#include "link/uses.h"

namespace tarvok::link {

/**
 * The one way in which a session waits: serve events, test the flag, test the clock, test whether the session
 * was given up. After Abort every wait ends at once with false, so that the session unwinds.
 */
class Waits {
 public:
  explicit Waits(EventServer& events) : events_(events) {}

  /** True when `flag` said true; false when the time ran out or the session was given up. */
  template <typename Flag>
  bool Until(Flag&& flag, std::int64_t timeout_ms) {
    const bool outer = std::exchange(without_end_, timeout_ms == EventServer::kForever);
    events_.ServeUntil([&] { return aborted_ || flag(); }, timeout_ms);
    without_end_ = outer;
    return !aborted_ && flag();
  }

  /** False when the session was given up meanwhile. */
  bool WaitSeconds(double seconds) {
    Until([] { return false; }, static_cast<std::int64_t>(seconds * 1000));
    return !aborted_;
  }

  void Abort() { aborted_ = true; }
  /** Makes waits work again, for what a closing form still says to the exchange. */
  void ClearAbort() { aborted_ = false; }
  bool aborted() const { return aborted_; }
  /** While a wait without a limit runs, which ends by its flag or by Abort alone. */
  bool without_end() const { return without_end_; }
  EventServer& events() { return events_; }

 private:
  EventServer& events_;
  bool aborted_ = false;
  bool without_end_ = false;
};

}  // namespace tarvok::link
