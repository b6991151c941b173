#include "tests/simulation/troubled_port.h"

#include <algorithm>
#include <utility>

#include "exchange/faulty_port.h"
#include "link/message.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

constexpr std::uint8_t kStrangersAddress = 0x20;
constexpr std::size_t kMostPause_ms = 900;
constexpr std::uint8_t kStrangersByte = 0x02;  // in place of the 0 of this exchange's messages

constexpr std::uint8_t kCommands[] = {
    command::kIdle,     command::kConfig,  command::kGetConfig,  command::kBillingTable,
    command::kTime,     command::kSetMode, command::kGetVersion, command::kEnquiry,
    command::kNextPack, command::kMiniBar, command::kGetMiniBar, command::kCheckPassword,
    reply::kOk,         reply::kSequence,
};

Bytes Framed(const Bytes& unit, const Bytes& message, Wire wire) {
  if (wire == Wire::kLink) return BuildFrame(kExchangeAddress, message);
  if (wire == Wire::kLan) return message;
  Bytes packet(unit.begin(), unit.begin() + kServerHeaderIn);
  packet.insert(packet.end(), message.begin(), message.end());
  packet.resize(std::max(packet.size(), unit.size()));
  return packet;
}

/** Why no exchange could understand the unit; "" if it is valid. */
std::string WrongOf(std::span<const std::uint8_t> unit, Wire wire) {
  if (wire == Wire::kLink && (unit.size() < 2 || unit[0] != kDle || unit[1] != kStx))
    return "";  // control, or modem text
  if (wire == Wire::kLink && LinkUnit(unit) != unit.size()) return "a frame in pieces";
  if (wire == Wire::kServer && unit.size() != kServerPacketOut) return "a packet of another size";
  const Bytes message = MessageIn(unit, wire, true);
  if (wire == Wire::kLink && message.empty()) return "";  // the one that establishes the link
  if (message.size() < kHeader || message.size() > kMaxMessage)
    return "a message of " + std::to_string(message.size());
  if (message[0] != kFromTool) return "a message that does not begin as the tool's";
  const bool known = std::find(std::begin(kCommands), std::end(kCommands), message[3]) != std::end(kCommands);
  return known ? "" : "a message of code " + std::to_string(message[3]);
}

}  // namespace

Bytes MessageIn(std::span<const std::uint8_t> unit, Wire wire, bool from_tool) {
  if (wire == Wire::kLan) return {unit.begin(), unit.end()};
  if (wire == Wire::kServer) {
    const std::size_t header = from_tool ? kServerHeaderOut : kServerHeaderIn;
    if (unit.size() <= header) return {};
    const std::size_t length = std::min<std::size_t>(unit[header - 1], unit.size() - header);
    return {unit.begin() + static_cast<std::ptrdiff_t>(header),
            unit.begin() + static_cast<std::ptrdiff_t>(header + length)};
  }
  if (unit.size() < 6 || unit[0] != kDle || unit[1] != kStx) return {};
  Bytes message;
  for (std::size_t at = 2; at + 3 < unit.size(); ++at) {
    message.push_back(unit[at]);
    if (unit[at] == kDle) ++at;
  }
  message.erase(message.begin());  // the address
  return message;
}

TroubledPort::TroubledPort(EventServer& events, std::unique_ptr<Port> inner, const Trouble& trouble,
                           std::uint64_t seed, Wire wire, Told told, int& passed)
    : PortOnPort(std::move(inner)),
      events_(events),
      trouble_(trouble),
      wire_(wire),
      told_(std::move(told)),
      out_{Chances(3 * seed), Chances(~seed), Chances(~(3 * seed)),
           [this](const Bytes& unit) { PortOnPort::Send(unit); }},
      in_{Chances(3 * seed + 1), Chances(~seed - 1), Chances(~(3 * seed) - 1),
          [this](const Bytes& unit) { GiveBytes(unit); }},
      lies_(3 * seed + 2),
      passed_(passed) {}

bool TroubledPort::Send(std::span<const std::uint8_t> bytes) {
  if (state() != PortState::kOpen) return false;
  if (bytes.empty()) return true;
  if (const std::string wrong = WrongOf(bytes, wire_); !wrong.empty()) told_.wrong("the tool sent " + wrong);
  const bool hang_up = trouble_.hangup_after && units_ == *trouble_.hangup_after;
  if (!dead_ && trouble_.silent_after && units_ >= *trouble_.silent_after) Die();
  ++units_;
  if (dead_) return true;
  if (hang_up) {
    Die();
    timers_.insert(events_.CallLater(0, [this] {
      PortOnPort::Close();
      GiveClosed("the other end hung up");
    }));
    return true;
  }
  Pass(out_, Bytes(bytes.begin(), bytes.end()));
  return true;
}

/** Units still on the way are lost, too. */
void TroubledPort::Die() {
  dead_ = true;
  StopTimers();
  told_.died();
}

void TroubledPort::OnBytes(std::span<const std::uint8_t> bytes) {
  if (dead_ || bytes.empty()) return;
  if (lies_.Happens(trouble_.stranger)) Give(in_, OfStranger());
  Pass(in_, Lie(Bytes(bytes.begin(), bytes.end())));
}

void TroubledPort::Pass(Lane& lane, Bytes unit) {
  // Always draw all chances, so that what happens to a unit does not depend on which troubles are enabled.
  const bool drop = lane.chances.Happens(trouble_.drop);
  const bool flip = lane.chances.Happens(trouble_.flip);
  const bool dup = lane.chances.Happens(trouble_.dup);
  const bool reorder = lane.chances.Happens(trouble_.reorder);
  const std::size_t bit = lane.chances.Pick(unit.size() * 8);
  const bool cut = lane.cuts.Happens(trouble_.cut);
  const std::size_t gone = lane.cuts.Pick(unit.size());
  const bool echo = lane.again.Happens(trouble_.echo);
  const bool torn = lane.again.Happens(trouble_.torn);
  const std::size_t came = lane.again.Pick(unit.size());
  const auto pause_ms = static_cast<std::int64_t>(lane.again.Pick(kMostPause_ms + 1));
  const bool lost = trouble_.lost && *trouble_.lost == passed_;
  ++passed_;
  if (drop || lost) return;
  if (flip) unit[bit / 8] = static_cast<std::uint8_t>(unit[bit / 8] ^ (1U << (bit % 8)));
  if (cut && unit.size() > 1) unit.erase(unit.begin() + static_cast<std::ptrdiff_t>(gone));
  if (reorder && lane.held.empty()) {
    lane.held = std::move(unit);
    return;
  }
  const bool from_exchange = &lane == &in_;
  if (torn && came > 0 && from_exchange) {
    Give(lane, {unit.begin(), unit.begin() + static_cast<std::ptrdiff_t>(came)});
    lane.last_due_ms += pause_ms;
  }
  Give(lane, unit);
  if (dup) Give(lane, unit);
  if (echo && from_exchange) GiveIn(pause_ms, lane, unit);
  if (const Bytes held = std::exchange(lane.held, {}); !held.empty()) Give(lane, held);
}

void TroubledPort::Give(Lane& lane, const Bytes& unit) {
  std::int64_t due_ms = events_.Tick_ms();
  if (lane.chances.Happens(trouble_.late))
    due_ms += static_cast<int>(lane.chances.Pick(static_cast<std::size_t>(trouble_.late_ms) + 1));
  lane.last_due_ms = std::max(lane.last_due_ms, due_ms);
  GiveIn(lane.last_due_ms - events_.Tick_ms(), lane, unit);
}

void TroubledPort::GiveIn(std::int64_t delay_ms, Lane& lane, const Bytes& unit) {
  auto id = std::make_shared<EventServer::TimerId>(0);
  *id = events_.CallLater(static_cast<int>(delay_ms), [this, &lane, id, unit] {
    timers_.erase(*id);
    if (state() == PortState::kOpen) lane.give(unit);
  });
  timers_.insert(*id);
}

Bytes TroubledPort::Lie(Bytes unit) {
  const bool sequence = lies_.Happens(trouble_.wrong_sequence);
  const bool size = lies_.Happens(trouble_.wrong_size);
  const bool section = lies_.Happens(trouble_.wrong_section);
  const auto other = static_cast<std::uint8_t>(1 + lies_.Pick(255));
  if (!sequence && !size && !section) return unit;
  Bytes message = MessageIn(unit, wire_, false);
  if (message.size() <= kHeader) return unit;
  const std::uint8_t code = message[3];
  const auto add = [&](std::size_t at) { message[at] = static_cast<std::uint8_t>(message[at] + other); };
  if (sequence && (code == reply::kSequence || code == reply::kSection || code == reply::kNextPack)) add(4);
  if (code == reply::kSection && message.size() >= 9) {
    if (section) add(5);
    if (size) add(7 + other % 2U);
  }
  return Framed(unit, message, wire_);
}

Bytes TroubledPort::OfStranger() {
  const Bytes yes = {kFromExchange, kStrangersByte, 0, lies_.Pick(2) == 0 ? reply::kOk : reply::kError};
  if (wire_ == Wire::kLan) return yes;
  const auto size = static_cast<std::uint8_t>(yes.size());
  if (wire_ == Wire::kServer) return Framed({0, 0, 0, 0, kServerMark, 0, 0, size}, yes, wire_);
  if (lies_.Pick(2) == 0) return BuildFrame(kStrangersAddress, yes);
  constexpr std::uint8_t kControls[] = {kAck0, kAck1, kNak, kEnq};
  return BuildControl(kControls[lies_.Pick(4)], kStrangersAddress);
}

void TroubledPort::StopTimers() {
  for (const EventServer::TimerId timer : std::exchange(timers_, {})) events_.StopTimer(timer);
}

void TroubledPort::Close() {
  StopTimers();
  PortOnPort::Close();
}

}  // namespace tarvok::test
