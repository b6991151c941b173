#include "link/frame.h"

namespace tarvok::link {
namespace {

void AppendDoubled(std::uint8_t byte, Bytes& out) {
  out.push_back(byte);
  if (byte == kDle) out.push_back(byte);
}

}  // namespace

std::uint8_t FrameCheck(std::uint8_t address, std::span<const std::uint8_t> data) {
  std::size_t sum = address + kDle + kEtx + data.size() + 1;
  for (const std::uint8_t byte : data) sum += byte;
  return static_cast<std::uint8_t>(sum % 256);
}

Bytes BuildFrame(std::uint8_t address, std::span<const std::uint8_t> data) {
  Bytes frame;
  frame.reserve(data.size() * 2 + 8);
  frame.push_back(kDle);
  frame.push_back(kStx);
  AppendDoubled(address, frame);
  for (const std::uint8_t byte : data) AppendDoubled(byte, frame);
  frame.push_back(kDle);
  frame.push_back(kEtx);
  frame.push_back(FrameCheck(address, data));
  return frame;
}

Bytes BuildControl(std::uint8_t control, std::uint8_t address) {
  Bytes frame{kDle, control};
  AppendDoubled(address, frame);
  return frame;
}

}  // namespace tarvok::link
