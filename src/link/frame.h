#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "link/uses.h"

namespace tarvok::link {

using Bytes = std::vector<std::uint8_t>;

/** The control bytes of the link. */
inline constexpr std::uint8_t kDle = 0x10;
inline constexpr std::uint8_t kStx = 0x02;
inline constexpr std::uint8_t kEtx = 0x03;
inline constexpr std::uint8_t kAck0 = 0x30;
inline constexpr std::uint8_t kAck1 = 0x31;
inline constexpr std::uint8_t kNak = 0x15;
inline constexpr std::uint8_t kEnq = 0x05;

/** The address bytes: frames from the tool carry the first, frames from the exchange the second. */
inline constexpr std::uint8_t kToolAddress = 0x01;
inline constexpr std::uint8_t kExchangeAddress = 0x10;

/** Maximum number of message bytes in a frame, before doubling. */
inline constexpr int kMaxFrameData = 64;

/**
 * The check byte of a frame: address + 19 (DLE and ETX), plus each message byte, plus the number of message
 * bytes, plus 1 for the address, modulo 256. Doubled bytes count once.
 */
std::uint8_t FrameCheck(std::uint8_t address, std::span<const std::uint8_t> data);

/**
 * 10 02, the address, the data, 10 03, the check byte. A byte 10 is doubled in address and data, but not as
 * the check byte.
 */
Bytes BuildFrame(std::uint8_t address, std::span<const std::uint8_t> data);

/** 10, the control byte, the address (doubled if it is 10). */
Bytes BuildControl(std::uint8_t control, std::uint8_t address);

}  // namespace tarvok::link
