#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

#include "link/uses.h"

namespace tarvok::link {

/** First byte of every message, by direction. */
inline constexpr std::uint8_t kFromTool = 0x12;
inline constexpr std::uint8_t kFromExchange = 0x21;

/** Maximum size of a message, header included. */
inline constexpr int kMaxMessage = 64;
/**
 * Header bytes before the payload: direction, address, 0, code. Sequenced messages have one more. The first
 * pack of data also has a number (section, or table and sector) and a size, each 16 bits, low byte first.
 */
inline constexpr int kHeader = 4;
inline constexpr int kSequencedHeader = 5;
inline constexpr int kFirstPackHeader = 9;
inline constexpr std::size_t kCodeAt = 3;
inline constexpr std::size_t kSequenceAt = 4;
inline constexpr std::size_t kNumberAt = 5;
inline constexpr std::size_t kSizeAt = 7;
/** A mini bar record as it is loaded: its number, then the name and the price. */
inline constexpr std::size_t kMiniBarNameAt = 7;
inline constexpr std::size_t kMiniBarNameBytes = 20;
inline constexpr int kMiniBarLoaded = kMiniBarNameBytes + 2;
/** Maximum payload of a message. */
inline constexpr int kPlainPayload = kMaxMessage - kHeader;
inline constexpr int kSequencedPayload = kMaxMessage - kSequencedHeader;

/** Byte 3 of a message from the tool. */
namespace command {
inline constexpr std::uint8_t kIdle = 0x00;
inline constexpr std::uint8_t kConfig = 0x01;
inline constexpr std::uint8_t kGetConfig = 0x02;
inline constexpr std::uint8_t kBillingTable = 0x03;
inline constexpr std::uint8_t kTime = 0x09;
inline constexpr std::uint8_t kSetMode = 0x0A;
inline constexpr std::uint8_t kGetVersion = 0x0B;
inline constexpr std::uint8_t kCheckPassword = 0x0C;
inline constexpr std::uint8_t kEnquiry = 0x0D;
inline constexpr std::uint8_t kNextPack = 0x0E;  // every pack of a message after its first
inline constexpr std::uint8_t kMiniBar = 0x11;
inline constexpr std::uint8_t kGetMiniBar = 0x12;
}  // namespace command

/** Byte 3 of a reply, in both directions for OK and sequence. */
namespace reply {
inline constexpr std::uint8_t kOk = 0x80;
inline constexpr std::uint8_t kSection = 0x82;  // first pack of a section
inline constexpr std::uint8_t kMiniBarData = 0x84;
inline constexpr std::uint8_t kMiniBarRecord = 0x88;
inline constexpr std::uint8_t kSequence = 0x89;
inline constexpr std::uint8_t kVersion = 0x8B;
inline constexpr std::uint8_t kNextPack = 0x8E;
inline constexpr std::uint8_t kError = 0x8F;
}  // namespace reply

/** How the length of a message is known. */
enum class Length : std::uint8_t {
  kFixed,      // by its code
  kFirstPack,  // by the size in its header: what fits of so many bytes of data
  kLaterPack,  // by what is missing of that data
  kOpen,       // not at all
};

/** A message as the receivers at both ends know it. */
struct MessageKind {
  std::uint8_t code;
  std::uint8_t sender;  // kFromTool, kFromExchange, or both bits
  Length length;
  int least;  // bytes of the shortest one; of a fixed one, all
  std::string_view name;
};

inline constexpr std::uint8_t kFromBoth = kFromTool | kFromExchange;
inline constexpr MessageKind kMessages[] = {
    {command::kIdle, kFromTool, Length::kFixed, 4, "idle"},
    {command::kConfig, kFromTool, Length::kFirstPack, kFirstPackHeader, "section"},
    {command::kGetConfig, kFromTool, Length::kFixed, 6, "get section"},
    {command::kBillingTable, kFromTool, Length::kFirstPack, kFirstPackHeader, "billing sector"},
    {command::kTime, kFromTool, Length::kFixed, 10, "set time"},
    {command::kSetMode, kFromTool, Length::kFixed, 5, "set mode"},
    {command::kGetVersion, kFromTool, Length::kFixed, 4, "get version"},
    {command::kCheckPassword, kFromTool, Length::kFixed, 7, "check password"},
    {command::kEnquiry, kFromBoth, Length::kFixed, 4, "enquiry"},
    {command::kNextPack, kFromTool, Length::kLaterPack, kSequencedHeader, "next pack"},
    {command::kMiniBar, kFromTool, Length::kFirstPack, kFirstPackHeader, "mini bar record"},
    {command::kGetMiniBar, kFromTool, Length::kFixed, 6, "get mini bar"},
    {reply::kOk, kFromBoth, Length::kFixed, 4, "respond OK"},
    {reply::kSection, kFromExchange, Length::kFirstPack, kFirstPackHeader, "section"},
    {reply::kMiniBarData, kFromExchange, Length::kOpen, 6, "mini bar data"},
    {reply::kMiniBarRecord, kFromExchange, Length::kFixed, kMiniBarNameAt + kMiniBarLoaded,
     "mini bar record"},
    {reply::kSequence, kFromBoth, Length::kFixed, 5, "respond sequence"},
    {reply::kVersion, kFromExchange, Length::kFixed, 6, "version"},
    {reply::kNextPack, kFromExchange, Length::kLaterPack, kSequencedHeader, "next pack"},
    {reply::kError, kFromExchange, Length::kFixed, 4, "error"},
};

/** nullptr if the sender has no message with this code. */
constexpr const MessageKind* FindMessage(std::uint8_t sender, std::uint8_t code) {
  for (const MessageKind& kind : kMessages) {
    if (kind.code == code && (kind.sender & sender) == sender) return &kind;
  }
  return nullptr;
}

/** 16 bits, low byte first. The bytes must exist. */
constexpr int WordAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  return bytes[at] + 256 * bytes[at + 1];
}
constexpr std::uint8_t LowByte(int value) {
  return static_cast<std::uint8_t>(value % 256);
}
constexpr std::uint8_t HighByte(int value) {
  return static_cast<std::uint8_t>(value / 256);
}

/**
 * The whole length of the sender's message that begins with these bytes; of an unknown one, as many as there
 * are. If the bytes do not say it yet, it is a length that they have not reached. `later_payload` returns the
 * payload of the later pack that they begin.
 */
template <typename LaterPayload>
std::size_t LengthOf(std::uint8_t sender, std::span<const std::uint8_t> bytes, LaterPayload&& later_payload) {
  if (bytes.size() < kHeader) return kHeader;
  const MessageKind* kind = FindMessage(sender, bytes[kCodeAt]);
  if (kind == nullptr || kind->length == Length::kOpen) return bytes.size();
  const auto least = static_cast<std::size_t>(kind->least);
  if (kind->length == Length::kFixed || bytes.size() < least) return least;
  const std::int64_t payload = kind->length == Length::kFirstPack ? WordAt(bytes, kSizeAt) : later_payload();
  return std::min<std::size_t>(least + static_cast<std::size_t>(payload), kMaxMessage);
}

/** What SendSetMode puts the exchange into. */
enum class ExchangeMode : std::uint8_t { kNormal = 0, kConfiguration = 1, kBilling = 2, kMiniBar = 4 };

/**
 * Packets of the relay server. To the server: 21, address, 0, 1, length, message, always 129 bytes. From the
 * server: at most 128 bytes, 0x11 at byte 4, the length at byte 7, the message from byte 8.
 */
inline constexpr int kServerPacketOut = 129;
inline constexpr int kServerHeaderOut = 5;
inline constexpr int kServerReadIn = 128;
inline constexpr int kServerHeaderIn = 8;
inline constexpr std::uint8_t kServerMark = 0x11;

}  // namespace tarvok::link
