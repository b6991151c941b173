#pragma once

#include <cstdint>
#include <string>

#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * How fast a transfer goes, in words for the user: what has come through, bytes a second, the share of a serial line that
 * it uses, and the time that is left at the speed measured so far. A byte of the configuration counts once, whatever
 * frames and repeats it took. Times are milliseconds of the event server's tick.
 */
class Pace {
 public:
  /** `line_bps` is the serial line's speed, 0 where there is none to compare with. */
  Pace(std::int64_t total_bytes, int line_bps, std::int64_t start_ms)
      : total_bytes_(total_bytes), line_bps_(line_bps), start_ms_(start_ms), moved_ms_(start_ms) {}

  /** "20,480 of 81,920 bytes, 650 bytes/s, about 1:34 left"; without speed and time before the first second and byte. */
  std::string Now(std::int64_t done_bytes, std::int64_t tick_ms) const;
  /** True once, when nothing has come through for longer than a message's retries last. */
  bool FallsSilent(std::int64_t done_bytes, std::int64_t tick_ms);
  /** "81,920 bytes in 2:06: 650 bytes/s, 67.7 % of the line", and what a low share of a line means. */
  std::string End(std::int64_t done_bytes, std::int64_t tick_ms) const;

 private:
  std::int64_t total_bytes_;
  int line_bps_;
  std::int64_t start_ms_;
  std::int64_t moved_bytes_ = 0;  // what had come through when there was more for the last time,
  std::int64_t moved_ms_;         // and when that was
  bool silent_ = false;
};

/** Minutes and seconds as "2:06". */
std::string MinutesText(std::int64_t seconds);

}  // namespace tarvok::sessions
