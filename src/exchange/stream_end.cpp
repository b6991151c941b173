#include "exchange/stream_end.h"

#include <algorithm>
#include <string>

#include "link/message.h"
#include "link/send_log.h"

namespace tarvok::exchange {
namespace {

constexpr int kRestPatience_ms = 1000;
constexpr std::size_t kLengthAt = 4;  // in a packet to the server

}  // namespace

void StreamEnd::Take(std::span<const std::uint8_t> bytes) {
  stream_.insert(stream_.end(), bytes.begin(), bytes.end());
  events_.StopTimer(patience_);
  while (!stream_.empty()) {
    if (stream_[0] != FirstByte()) {
      complain_("bytes that start no message: " + HexDump(stream_));
      stream_.clear();
      return;
    }
    const std::size_t size = UnitSize(stream_);
    if (size > stream_.size()) {
      patience_ = events_.CallLater(kRestPatience_ms, [this] { TakeFront(stream_.size()); });
      return;
    }
    // Bytes after a unit that do not start another one belong to it: it is too long, and its reader reports
    // that.
    const bool too_long = stream_.size() > size && stream_[size] != FirstByte();
    TakeFront(too_long ? stream_.size() : size);
  }
}

void StreamEnd::TakeFront(std::size_t size) {
  const auto end = stream_.begin() + static_cast<std::ptrdiff_t>(size);
  const Bytes unit(stream_.begin(), end);
  stream_.erase(stream_.begin(), end);
  TakeUnit(unit);
}

std::uint8_t LanEnd::FirstByte() const {
  return kFromTool;
}

std::size_t LanEnd::UnitSize(std::span<const std::uint8_t> stream) const {
  return LengthOf(kFromTool, stream, [&] {
    const int payload = pack_payload_ ? pack_payload_(stream[kSequenceAt]) : -1;
    // The length of an unexpected pack is unknown.
    return payload < 0 ? static_cast<int>(stream.size()) - kSequencedHeader : payload;
  });
}

std::uint8_t ServerEnd::FirstByte() const {
  return kFromExchange;
}

std::size_t ServerEnd::UnitSize(std::span<const std::uint8_t>) const {
  return kServerPacketOut;
}

void ServerEnd::TakeUnit(std::span<const std::uint8_t> unit) {
  if (unit.size() != kServerPacketOut) {
    complain_("a packet of " + std::to_string(unit.size()) + " bytes, not " +
              std::to_string(kServerPacketOut));
    return;
  }
  const std::size_t length = unit[kLengthAt];
  if (unit[2] != 0 || unit[3] != 1 || length > kMaxMessage) {
    complain_("a packet with a wrong head: " + HexDump(unit.first(kServerHeaderOut)));
    return;
  }
  const std::span<const std::uint8_t> message = unit.subspan(kServerHeaderOut, length);
  const std::span<const std::uint8_t> rest = unit.subspan(kServerHeaderOut + length);
  if (std::any_of(rest.begin(), rest.end(), [](std::uint8_t byte) { return byte != 0; })) {
    complain_("a packet with bytes after its message");
  }
  if (length > 1 && message[1] != unit[1]) complain_("a packet and its message with different addresses");
  GiveMessage(message);
}

void ServerEnd::Send(std::span<const std::uint8_t> message) {
  Bytes packet(kServerHeaderIn, 0);
  packet[4] = kServerMark;
  packet[7] = static_cast<std::uint8_t>(message.size());
  packet.insert(packet.end(), message.begin(), message.end());
  port_.Send(packet);
}

}  // namespace tarvok::exchange
