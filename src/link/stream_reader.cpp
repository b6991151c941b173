#include "link/stream_reader.h"

#include <algorithm>

#include "link/message.h"

namespace tarvok::link {
namespace {

constexpr std::int64_t kHold_ms = 1000;
constexpr std::size_t kMarkAt = 4;
constexpr std::size_t kLengthAt = 7;
constexpr std::size_t kProven = 10;  // bytes that include the beginning of the message itself

using ByteSpan = std::span<const std::uint8_t>;

bool BeginsMessage(ByteSpan bytes) {
  return bytes[0] == kFromExchange && (bytes.size() < 2 || bytes[1] == 0);
}

bool IsKnown(std::uint8_t code) {
  return FindMessage(kFromExchange, code) != nullptr;
}

/** True if the bytes begin with a message, including its code, that the exchange sends. */
bool BeginsKnownMessage(ByteSpan bytes) {
  return bytes.size() >= kHeader && BeginsMessage(bytes) && IsKnown(bytes[kCodeAt]);
}

bool BeginsPacket(ByteSpan bytes) {
  return bytes.size() > kLengthAt && bytes[kMarkAt] == kServerMark;
}

std::size_t PacketLength(ByteSpan bytes) {
  return static_cast<std::size_t>(kServerHeaderIn) + bytes[kLengthAt];
}

/** True if the bytes received so far may be the beginning of a packet. */
bool MayBeginPacket(ByteSpan bytes) {
  if (bytes.size() > kMarkAt && bytes[kMarkAt] != kServerMark) return false;
  if (bytes.size() <= kLengthAt) return true;
  const std::size_t length = bytes[kLengthAt];
  if (length == 0 || length > static_cast<std::size_t>(kMaxMessage)) return false;
  const ByteSpan message = bytes.subspan(kServerHeaderIn, std::min(length, bytes.size() - kServerHeaderIn));
  return message.empty() || BeginsMessage(message);
}

/** True if the bytes begin with a packet whose message is complete. */
bool IsProvenPacket(ByteSpan bytes) {
  return bytes.size() >= kProven && MayBeginPacket(bytes) && bytes.size() >= PacketLength(bytes);
}

/**
 * Skips bytes that cannot begin a packet: padding of the previous one. Its last bytes may look like a
 * beginning.
 */
ByteSpan FromNextPacket(ByteSpan bytes) {
  while (!MayBeginPacket(bytes)) bytes = bytes.subspan(1);
  return bytes;
}

/** True if the held beginning of a packet and the new bytes join to a packet with a known message. */
bool JoinsWell(ByteSpan joined) {
  if (joined.size() < PacketLength(joined)) return true;  // its rest may still come
  return BeginsKnownMessage(joined.subspan(kServerHeaderIn)) &&
         MayBeginPacket(joined.subspan(PacketLength(joined)));
}

void TakePacket(ByteSpan packet, const TakeMessage& take) {
  const std::size_t length = packet[kLengthAt];
  if (length <= static_cast<std::size_t>(kMaxMessage)) take(packet.subspan(kServerHeaderIn, length));
}

/** True if the bytes consist of whole packets, each as long as it says or padded to a block of 128 bytes. */
bool IsWholePackets(ByteSpan bytes, bool blocks) {
  while (!bytes.empty()) {
    if (!BeginsPacket(bytes)) return false;
    const std::size_t length = blocks ? static_cast<std::size_t>(kServerReadIn) : PacketLength(bytes);
    if (length > bytes.size() || PacketLength(bytes) > length) return false;
    bytes = bytes.subspan(length);
  }
  return true;
}

void TakeWholePackets(ByteSpan bytes, bool blocks, const TakeMessage& take) {
  while (!bytes.empty()) {
    TakePacket(bytes, take);
    bytes = bytes.subspan(blocks ? static_cast<std::size_t>(kServerReadIn) : PacketLength(bytes));
  }
}

}  // namespace

bool HeldBytes::Follows(std::int64_t tick_ms) const {
  return since_ms_ && tick_ms - *since_ms_ <= kHold_ms;
}

std::vector<std::uint8_t> HeldBytes::Join(std::span<const std::uint8_t> read, std::int64_t tick_ms) {
  std::vector<std::uint8_t> joined;
  if (Follows(tick_ms)) joined.swap(bytes_);
  bytes_.clear();
  joined.insert(joined.end(), read.begin(), read.end());
  return joined;
}

void HeldBytes::Hold(std::span<const std::uint8_t> bytes, std::int64_t tick_ms) {
  bytes_.assign(bytes.begin(), bytes.end());
  since_ms_ = tick_ms;
}

std::size_t LanReader::ExpectedLength(ByteSpan bytes) const {
  return LengthOf(kFromExchange, bytes, [this] { return missing_(); });
}

/**
 * True if the bytes begin a message with a known code that, if complete, ends where the code says. Bytes that
 * have not arrived yet are assumed to be right.
 */
bool LanReader::BeginsWell(ByteSpan bytes) const {
  if (!BeginsMessage(bytes)) return false;
  if (bytes.size() < kHeader) return true;
  if (!IsKnown(bytes[kCodeAt])) return false;
  const std::size_t expected = ExpectedLength(bytes);
  return bytes.size() <= expected ? bytes.size() <= kMaxMessage : BeginsMessage(bytes.subspan(expected));
}

bool LanReader::Feed(ByteSpan read, std::int64_t tick_ms, const TakeMessage& take) {
  const std::vector<std::uint8_t> joined = held_.Join(read, tick_ms);
  const bool broken_off = joined.size() > read.size() && BeginsKnownMessage(read) && !BeginsWell(joined);
  ByteSpan bytes = broken_off ? read : ByteSpan(joined);
  while (!bytes.empty()) {
    if (!BeginsMessage(bytes)) break;
    const std::size_t expected = ExpectedLength(bytes);
    if (bytes.size() < expected) {
      held_.Hold(bytes, tick_ms);
      break;
    }
    const ByteSpan rest = bytes.subspan(expected);
    const bool another_follows = rest.empty() || BeginsMessage(rest);
    const ByteSpan message = another_follows ? bytes.first(expected) : bytes;
    bytes = another_follows ? rest : ByteSpan();
    take(message);
  }
  return !broken_off;
}

bool ServerReader::Feed(ByteSpan read, std::int64_t tick_ms, const TakeMessage& take) {
  if (!held_.Follows(tick_ms) && !MayBeginPacket(read)) return true;
  const std::vector<std::uint8_t> joined = held_.Join(read, tick_ms);
  // A few held bytes are most likely padding, which must not consume a packet's own bytes.
  const bool held_begins = joined.size() - read.size() >= kProven;
  const bool stands_alone = IsProvenPacket(read) && !(held_begins && JoinsWell(joined));
  const bool broken_off = stands_alone && held_begins;
  ByteSpan bytes = stands_alone ? read : FromNextPacket(joined);
  if (std::min(read.size(), bytes.size()) > static_cast<std::size_t>(kServerReadIn)) {
    for (const bool blocks : {false, true}) {
      if (!IsWholePackets(bytes, blocks)) continue;
      TakeWholePackets(bytes, blocks, take);
      break;
    }
    return !broken_off;
  }
  while (BeginsPacket(bytes) && bytes.size() >= PacketLength(bytes)) {
    TakePacket(bytes, take);
    bytes = FromNextPacket(bytes.subspan(PacketLength(bytes)));
  }
  held_.Hold(bytes, tick_ms);
  return !broken_off;
}

}  // namespace tarvok::link
