#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "link/uses.h"

namespace tarvok::link {

using TakeMessage = std::function<void(std::span<const std::uint8_t>)>;

/** What a socket delivered and no message claimed yet. Held for at most a second, then it is given up. */
class HeldBytes {
 public:
  /** What is held and what just came, as one read. */
  std::vector<std::uint8_t> Join(std::span<const std::uint8_t> read, std::int64_t tick_ms);
  void Hold(std::span<const std::uint8_t> bytes, std::int64_t tick_ms);
  /** Whether Hold was called within the last second, be it without bytes. */
  bool Follows(std::int64_t tick_ms) const;

 private:
  std::vector<std::uint8_t> bytes_;
  std::optional<std::int64_t> since_ms_;
};

/**
 * Finds messages in what a LAN socket delivers. A read is one message as a rule, but a stream may split or
 * join them: a message is cut where its code says it ends and another begins with 21 00, and one that is not
 * whole is held for its rest. A read that does not begin with 21 00 is dropped. So is what was held, where it makes no
 * message with the read behind it and that one begins a message of its own: the first one broke off.
 */
class LanReader {
 public:
  /** `missing` tells how many bytes the section in progress still lacks. */
  explicit LanReader(std::function<std::int64_t()> missing) : missing_(std::move(missing)) {}

  /** False where a beginning that was held is dropped. */
  bool Feed(std::span<const std::uint8_t> read, std::int64_t tick_ms, const TakeMessage& take);

 private:
  std::size_t ExpectedLength(std::span<const std::uint8_t> bytes) const;
  bool BeginsWell(std::span<const std::uint8_t> bytes) const;

  std::function<std::int64_t()> missing_;
  HeldBytes held_;
};

/**
 * Finds messages in what the relay server delivers: packets of at most 128 bytes with 0x11 at byte 4, the
 * length at byte 7 and the message from byte 8. A longer read is dropped whole unless it is made of whole
 * packets, and one that begins no packet is dropped. The beginning of a packet is held for its rest, also behind a whole
 * one; so within a second of a packet a read may begin with the rest or the padding of that one. What was held is dropped
 * where it makes no packet with the read behind it and that one is a packet of its own. A length above 64 drops the packet.
 */
class ServerReader {
 public:
  /** False where the beginning of a packet, message and all, that was held is dropped. */
  bool Feed(std::span<const std::uint8_t> read, std::int64_t tick_ms, const TakeMessage& take);

 private:
  HeldBytes held_;
};

}  // namespace tarvok::link
