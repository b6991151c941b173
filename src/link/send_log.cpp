#include "link/send_log.h"

#include "store/value_code.h"

namespace tarvok::link {

std::string HexDump(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve(bytes.size() * 4);
  for (const std::uint8_t byte : bytes) text.append(DecToHex(byte)).append("H ");
  return text;
}

}  // namespace tarvok::link
