#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "exchange/uses.h"
#include "link/message.h"

namespace tarvok::exchange {

/** Offsets in a message of the tool. */
inline constexpr std::size_t kCodeAt = 3;
inline constexpr std::size_t kSequenceAt = 4;
/**
 * In the first pack of data: section number (or table and sector), 16 bits, then the size, 16 bits; low byte
 * first.
 */
inline constexpr std::size_t kNumberAt = 5;
inline constexpr std::size_t kSizeAt = 7;
inline constexpr int kFirstPackHeader = 9;
/** Maximum number of data bytes in the first and in a later pack. */
inline constexpr int kFirstPackData = kMaxMessage - kFirstPackHeader;
inline constexpr int kLaterPackData = kSequencedPayload;

/** A message that the tool can send, as the exchange knows it. */
struct ToolMessage {
  std::uint8_t code = 0;
  int size = 0;  // bytes; 0 for packs of data, whose size varies
  std::string_view name;
};

inline constexpr std::array kToolMessages = {
    ToolMessage{command::kIdle, 4, "idle"},
    ToolMessage{command::kConfig, 0, "section"},
    ToolMessage{command::kGetConfig, 6, "get section"},
    ToolMessage{command::kBillingTable, 0, "billing sector"},
    ToolMessage{command::kTime, 10, "set time"},
    ToolMessage{command::kSetMode, 5, "set mode"},
    ToolMessage{command::kGetVersion, 4, "get version"},
    ToolMessage{command::kCheckPassword, 7, "check password"},
    ToolMessage{command::kEnquiry, 4, "enquiry"},
    ToolMessage{command::kNextPack, 0, "next pack"},
    ToolMessage{command::kMiniBar, 0, "mini bar record"},
    ToolMessage{command::kGetMiniBar, 6, "get mini bar"},
    ToolMessage{reply::kOk, 4, "respond OK"},
    ToolMessage{reply::kSequence, 5, "respond sequence"},
};

/** nullptr if the tool has no such message. */
constexpr const ToolMessage* FindToolMessage(std::uint8_t code) {
  for (const ToolMessage& message : kToolMessages) {
    if (message.code == code) return &message;
  }
  return nullptr;
}

/** Reads 16 bits, low byte first. The bytes must exist. */
inline int WordAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  return bytes[at] + 256 * bytes[at + 1];
}

}  // namespace tarvok::exchange
