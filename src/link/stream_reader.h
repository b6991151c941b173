#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "link/uses.h"

namespace tarvok::link {

using TakeMessage = std::function<void(std::span<const std::uint8_t>)>;

/** Received bytes that are not yet a whole message. They are kept for at most a second. */
class HeldBytes {
 public:
  /** The held bytes and the new ones as one read. */
  std::vector<std::uint8_t> Join(std::span<const std::uint8_t> read, std::int64_t tick_ms);
  void Hold(std::span<const std::uint8_t> bytes, std::int64_t tick_ms);
  /** Whether Hold was called within the last second, even without bytes. */
  bool Follows(std::int64_t tick_ms) const;

 private:
  std::vector<std::uint8_t> bytes_;
  std::optional<std::int64_t> since_ms_;
};

/**
 * Finds messages in what a LAN socket delivers. Usually a read is one message, but a stream may split or join
 * them: a message is cut where its code says it ends and another one begins with 21 00, and an incomplete one
 * is held until the rest arrives. A read that does not begin with 21 00 is dropped. Held bytes are dropped if
 * they do not form a message with the next read while that read begins a message itself: the held message has
 * broken off.
 */
class LanReader {
 public:
  /** `missing` returns how many bytes the section in progress still lacks. */
  explicit LanReader(std::function<std::int64_t()> missing) : missing_(std::move(missing)) {}

  /** False if the held beginning of a message was dropped. */
  bool Feed(std::span<const std::uint8_t> read, std::int64_t tick_ms, const TakeMessage& take);

 private:
  std::size_t ExpectedLength(std::span<const std::uint8_t> bytes) const;
  bool BeginsWell(std::span<const std::uint8_t> bytes) const;

  std::function<std::int64_t()> missing_;
  HeldBytes held_;
};

/**
 * Finds messages in what the relay server delivers: packets of at most 128 bytes with 0x11 at byte 4, the
 * length at byte 7 and the message from byte 8. A longer read is dropped as a whole unless it consists of
 * whole packets; so is a read that does not begin a packet. The beginning of a packet is held until the rest
 * arrives, also if it follows a whole packet; so within a second of a packet, a read may begin with the rest
 * or the padding of that one. Held bytes are dropped if they do not form a packet with the next read while
 * that read is itself a packet. A packet with a length above 64 is dropped.
 */
class ServerReader {
 public:
  /** False if the held beginning of a packet was dropped, including the beginning of its message. */
  bool Feed(std::span<const std::uint8_t> read, std::int64_t tick_ms, const TakeMessage& take);

 private:
  HeldBytes held_;
};

}  // namespace tarvok::link
