#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "exchange/uses.h"
#include "link/frame.h"

namespace tarvok::exchange {

/** A complete section, mini bar record or billing sector. */
struct IncomingData {
  std::uint8_t code = 0;
  int number = 0;  // section or record; a billing table's low byte is the table, its high byte the sector
  Bytes bytes;
};

/**
 * Assembles the packs of a message. Packs are numbered from 0, and 255 is followed by 0. An immediately
 * repeated pack is valid, but counts once.
 */
class IncomingPacks {
 public:
  /** The result of taking a pack. */
  struct Outcome {
    std::string refusal;                  // "" if it is valid
    std::optional<IncomingData> whole{};  // set with the last pack
  };

  /** The number in a first pack. The pack must have its whole header. */
  static int NumberOf(std::span<const std::uint8_t> first_pack);
  static int SizeOf(std::span<const std::uint8_t> first_pack);

  /** True if this is a repetition of the last pack. */
  bool IsRepeat(std::span<const std::uint8_t> pack) const;
  /** Starts a message, whose number and size are valid. */
  Outcome TakeFirst(std::span<const std::uint8_t> pack);
  Outcome TakeNext(std::span<const std::uint8_t> pack);
  /** Another message came: a repeated pack of this one is no longer valid. */
  void Interrupt();

  /**
   * The sequence byte with which an enquiry is answered: that of the expected pack, or 0 when no message is
   * in progress, so that the sender of a lost first pack sends it again.
   */
  std::uint8_t due() const { return due_; }
  /**
   * The number of payload bytes in the later pack with that sequence byte; negative if it does not belong to
   * a message.
   */
  int PayloadOf(std::uint8_t sequence) const;

 private:
  Outcome Add(std::span<const std::uint8_t> pack, std::size_t header);

  IncomingData data_;
  std::size_t size_ = 0;
  bool under_way_ = false;
  std::uint8_t due_ = 0;
  Bytes last_pack_;  // empty if none
};

}  // namespace tarvok::exchange
