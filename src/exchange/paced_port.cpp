#include "exchange/paced_port.h"

#include <algorithm>

namespace tarvok::exchange {
namespace {

constexpr std::int64_t kBitsPerByte_ms = 10'000;  // ten bits per byte, a thousand milliseconds per second

}  // namespace

void PacedLane::Add(std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return;
  const bool was_idle = idle();
  if (was_idle) {
    burst_.clear();
    given_ = 0;
    start_ms_ = events_.Tick_ms();
  }
  burst_.insert(burst_.end(), bytes.begin(), bytes.end());
  if (was_idle) WaitForNext();
}

void PacedLane::Clear() {
  events_.StopTimer(timer_);
  burst_.clear();
  given_ = 0;
}

void PacedLane::WaitForNext() {
  const auto next = static_cast<std::int64_t>(given_) + 1;
  const std::int64_t due_ms = start_ms_ + next * kBitsPerByte_ms / speed_bps_;
  timer_ = events_.CallLater(static_cast<int>(std::max<std::int64_t>(due_ms - events_.Tick_ms(), 0)),
                             [this] { OnTime(); });
}

void PacedLane::OnTime() {
  // A byte is due in the tick in which it becomes complete. Ticks and timers both lag by half a millisecond
  // on average, so this matches a real line; waiting for the next tick would be a millisecond late in every
  // burst.
  const std::int64_t ticks_ms = events_.Tick_ms() - start_ms_ + 1;
  const auto whole = static_cast<std::size_t>((ticks_ms * speed_bps_ - 1) / kBitsPerByte_ms);
  const std::size_t due = std::min(std::max(whole, given_), burst_.size());
  const Bytes piece(burst_.begin() + static_cast<std::ptrdiff_t>(given_),
                    burst_.begin() + static_cast<std::ptrdiff_t>(due));
  given_ = due;
  if (!idle()) WaitForNext();
  // The handler may destroy the lane.
  if (!piece.empty()) give_(piece);
}

PacedPort::PacedPort(EventServer& events, std::unique_ptr<Port> inner, int speed_bps)
    : PortOnPort(std::move(inner)),
      in_(events, speed_bps, [this](std::span<const std::uint8_t> bytes) { GiveArrived(bytes); }),
      out_(events, speed_bps, [this](std::span<const std::uint8_t> bytes) { PortOnPort::Send(bytes); }) {}

bool PacedPort::Send(std::span<const std::uint8_t> bytes) {
  if (state() != PortState::kOpen) return false;
  out_.Add(bytes);
  return true;
}

void PacedPort::Discard() {
  in_.Clear();
  out_.Clear();
  PortOnPort::Discard();
}

void PacedPort::Close() {
  in_.Clear();
  out_.Clear();
  PortOnPort::Close();
}

void PacedPort::OnClosed(std::string_view reason) {
  out_.Clear();
  if (in_.idle()) {
    GiveClosed(reason);
  } else {
    closed_reason_ = reason;
  }
}

void PacedPort::GiveArrived(std::span<const std::uint8_t> bytes) {
  if (!closed_reason_ || !in_.idle()) {
    GiveBytes(bytes);
    return;
  }
  const std::string reason = *std::exchange(closed_reason_, std::nullopt);
  GiveBytes(bytes);
  GiveClosed(reason);
}

}  // namespace tarvok::exchange
