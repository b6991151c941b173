#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "exchange/uses.h"
#include "link/frame.h"

namespace tarvok::exchange {

/** A section, mini bar record or billing sector that came whole. */
struct IncomingData {
  std::uint8_t code = 0;
  int number = 0;  // section or record; a billing table's low byte is the table, its high byte the sector
  Bytes bytes;
};

/**
 * Puts the packs of a message together. The packs of a message count from 0, and behind 255 comes 0 again. A
 * pack that comes twice in a row is good, but counts once.
 */
class IncomingPacks {
 public:
  /** What became of a pack. */
  struct Outcome {
    std::string refusal;                  // "" if it is good
    std::optional<IncomingData> whole{};  // with the last pack
  };

  /** Declared size and number of a first pack, which must have its header. */
  static int NumberOf(std::span<const std::uint8_t> first_pack);
  static int SizeOf(std::span<const std::uint8_t> first_pack);

  /** Whether this is the pack that was taken last, once more. */
  bool IsRepeat(std::span<const std::uint8_t> pack) const;
  /** Begins a message, its number and size being good. */
  Outcome TakeFirst(std::span<const std::uint8_t> pack);
  Outcome TakeNext(std::span<const std::uint8_t> pack);
  /** Another message came: a pack of this one that comes again is no repeat any more. */
  void Interrupt();

  /** The sequence byte that an enquiry is answered with: that of the pack which is due. 0 when no message is
   * under way, so that the sender of a lost first pack sends it again. */
  std::uint8_t due() const { return due_; }
  /** Payload bytes of the later pack with that sequence byte, negative if it belongs to nothing. */
  int PayloadOf(std::uint8_t sequence) const;

 private:
  Outcome Add(std::span<const std::uint8_t> pack, std::size_t header);

  IncomingData data_;
  std::size_t size_ = 0;
  bool under_way_ = false;
  std::uint8_t due_ = 0;
  Bytes last_pack_;  // empty: none
};

}  // namespace tarvok::exchange
