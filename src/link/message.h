#pragma once

#include <cstdint>

#include "link/uses.h"

namespace tarvok::link {

/** First byte of every message, by direction. */
inline constexpr std::uint8_t kFromTool = 0x12;
inline constexpr std::uint8_t kFromExchange = 0x21;

/** Maximum size of a message, header included. */
inline constexpr int kMaxMessage = 64;
/** Header bytes before the payload: direction, address, 0, code. Sequenced messages have one more. */
inline constexpr int kHeader = 4;
inline constexpr int kSequencedHeader = 5;
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
