#include "exchange/faulty_port.h"

#include <algorithm>

#include "link/message.h"

namespace tarvok::exchange {

std::size_t LinkUnit(std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return 0;
  if (bytes[0] != kDle) return 1;
  if (bytes.size() < 2) return 0;
  if (bytes[1] != kStx) return bytes[1] == kDle ? 2 : (bytes.size() < 3 ? 0 : 3);
  for (std::size_t at = 2; at + 1 < bytes.size(); ++at) {
    if (bytes[at] != kDle) continue;
    if (bytes[at + 1] != kDle) return at + 2 < bytes.size() ? at + 3 : 0;
    ++at;
  }
  return 0;
}

std::size_t ServerUnit(std::span<const std::uint8_t> bytes) {
  return bytes.size() < kServerPacketOut ? 0 : kServerPacketOut;
}

FaultyPort::FaultyPort(EventServer& events, std::unique_ptr<Port> inner, const FaultPlan& plan,
                       std::uint64_t seed, UnitCutter cutter)
    : PortOnPort(std::move(inner)),
      events_(events),
      plan_(plan),
      cutter_(std::move(cutter)),
      in_chances_(2 * seed),
      out_chances_(2 * seed + 1) {}

Bytes FaultyPort::Damage(std::span<const std::uint8_t> unit, Chances& chances) const {
  // Always draw all three chances, so that what happens to a unit does not depend on which faults are
  // enabled.
  const bool drop = chances.Happens(plan_.drop);
  const bool flip = chances.Happens(plan_.flip);
  const bool dup = chances.Happens(plan_.dup);
  const std::size_t bit = chances.Pick(unit.size() * 8);
  if (drop) return {};
  Bytes bytes(unit.begin(), unit.end());
  if (flip) bytes[bit / 8] = static_cast<std::uint8_t>(bytes[bit / 8] ^ (1U << (bit % 8)));
  if (dup) bytes.insert(bytes.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(unit.size()));
  return bytes;
}

bool FaultyPort::Send(std::span<const std::uint8_t> bytes) {
  if (state() != PortState::kOpen) return false;
  if (dead_ || bytes.empty()) return true;
  Bytes damaged = Damage(bytes, out_chances_);
  if (damaged.empty()) return true;
  if (plan_.delay_ms == 0) return PortOnPort::Send(damaged);
  SendLater(std::move(damaged));
  return true;
}

void FaultyPort::SendLater(Bytes bytes) {
  auto id = std::make_shared<EventServer::TimerId>(0);
  *id = events_.CallLater(plan_.delay_ms, [this, id, bytes = std::move(bytes)] {
    delayed_.erase(*id);
    PortOnPort::Send(bytes);
  });
  delayed_.insert(*id);
}

void FaultyPort::StopTimers() {
  for (const EventServer::TimerId timer : std::exchange(delayed_, {})) events_.StopTimer(timer);
}

void FaultyPort::Close() {
  StopTimers();
  PortOnPort::Close();
}

void FaultyPort::OnBytes(std::span<const std::uint8_t> bytes) {
  uncut_.insert(uncut_.end(), bytes.begin(), bytes.end());
  Bytes passed;
  bool hang_up = false;
  while (const std::size_t size = uncut_.empty() || dead_ ? 0 : cutter_(uncut_)) {
    const Bytes unit = Damage(std::span(uncut_).first(size), in_chances_);
    uncut_.erase(uncut_.begin(), uncut_.begin() + static_cast<std::ptrdiff_t>(size));
    // The unit that completes the count still passes; then the line goes dead.
    dead_ = plan_.silent_after && units_ >= *plan_.silent_after;
    hang_up = plan_.hangup_after && units_ >= *plan_.hangup_after;
    ++units_;
    if (hang_up) dead_ = true;
    if (!dead_) passed.insert(passed.end(), unit.begin(), unit.end());
  }
  if (dead_) uncut_.clear();
  if (hang_up) {
    Close();
    GiveClosed("hung up for practice");
  } else if (!passed.empty()) {
    GiveBytes(passed);
  }
}

}  // namespace tarvok::exchange
