#include "sessions/pace.h"

#include <algorithm>
#include <utility>

#include "store/number_text.h"

namespace tarvok::sessions {
namespace {

constexpr std::int64_t kSecond_ms = 1000;
constexpr std::int64_t kBitsPerByte = 10;  // with start and stop bit
/**
 * In thousandths of the line. Frames, acknowledgements and replies leave 678 for a configuration; the pauses
 * of a load leave 470 at 115,200 bit/s; an adapter that holds each byte back for 16 ms leaves 260.
 */
constexpr std::int64_t kLowShare = 400;
constexpr std::int64_t kSilence_ms = 15'000;  // a pack with its three enquiries takes 13 s

std::string Grouped(std::int64_t value) {
  std::string text = std::to_string(value);
  for (std::size_t at = text.size(); at > 3; at -= 3) text.insert(at - 3, ",");
  return text;
}

}  // namespace

std::string MinutesText(std::int64_t seconds) {
  return std::to_string(seconds / 60) + ":" + Padded(seconds % 60, 2);
}

std::string Pace::Now(std::int64_t done_bytes, std::int64_t tick_ms) const {
  const std::int64_t done = std::min(done_bytes, total_bytes_);
  const std::int64_t ms = tick_ms - start_ms_;
  std::string text = Grouped(done) + " of " + Grouped(total_bytes_) + " bytes";
  if (ms < kSecond_ms || done <= 0) return text;
  const std::int64_t left_s = ((total_bytes_ - done) * ms / done + kSecond_ms - 1) / kSecond_ms;
  return text + ", " + Grouped(done * kSecond_ms / ms) + " bytes/s, about " + MinutesText(left_s) + " left";
}

bool Pace::FallsSilent(std::int64_t done_bytes, std::int64_t tick_ms) {
  if (std::exchange(moved_bytes_, done_bytes) != done_bytes) moved_ms_ = tick_ms;
  const bool silent = tick_ms - moved_ms_ >= kSilence_ms;
  return !std::exchange(silent_, silent) && silent;
}

std::string Pace::End(std::int64_t done_bytes, std::int64_t tick_ms) const {
  const std::int64_t ms = std::max<std::int64_t>(tick_ms - start_ms_, 1);
  const std::int64_t rate = done_bytes * kSecond_ms / ms;
  std::string text = Grouped(done_bytes) + " bytes in " + MinutesText((ms + kSecond_ms / 2) / kSecond_ms) +
                     ": " + Grouped(rate) + " bytes/s";
  if (line_bps_ <= 0) return text;
  const std::int64_t share = rate * kBitsPerByte * 1000 / line_bps_;
  text += ", " + std::to_string(share / 10) + "." + std::to_string(share % 10) + " % of the line";
  if (share < kLowShare) {
    text +=
        ". Up to two thirds are attainable: an adapter that holds bytes back, a slow exchange or "
        "repeats took the rest";
  }
  return text;
}

void PaceMeter::Start() {
  elapsed_s_ = 0;
  pace_.reset();
  timer_ = waits_.events().StartTimer(static_cast<int>(kSecond_ms), [this] { OnSecond(); });
}

void PaceMeter::Stop() {
  if (std::exchange(pace_, std::nullopt)) view_.ShowPace({});
  waits_.events().StopTimer(std::exchange(timer_, 0));
}

void PaceMeter::BeginTransfer(std::int64_t bytes) {
  bytes_before_ = 0;
  bytes_before_ = BytesThrough();
  pace_.emplace(bytes, line_bps_, Tick_ms());
}

void PaceMeter::EndTransfer() {
  if (pace_ && !waits_.aborted()) view_.ShowPace(pace_->End(BytesThrough(), Tick_ms()));
  pace_.reset();
}

void PaceMeter::OnSecond() {
  view_.Elapsed(++elapsed_s_);
  if (!pace_) return;
  const std::int64_t now_ms = Tick_ms();
  view_.ShowPace(pace_->Now(BytesThrough(), now_ms));
  if (!pace_->FallsSilent(BytesThrough(), now_ms)) return;
  // The wait for the rest of a section has no time limit: a lost byte stops it just as a dead line does.
  view_.Advise(waits_.without_end()
                   ? "Nothing received for 15 seconds. If this continues, the rest may be lost: give up and "
                     "start again."
                   : "Nothing received for 15 seconds. If this continues, the session ends by itself.");
}

std::int64_t PaceMeter::BytesThrough() const {
  return counted_.bytes_sent + counted_.bytes_taken - bytes_before_;
}

}  // namespace tarvok::sessions
