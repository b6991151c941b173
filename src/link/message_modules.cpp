#include "link/message_modules.h"

#include <algorithm>
#include <array>
#include <string>

namespace tarvok::link {

void ServerMessages::SendToServer(std::span<const std::uint8_t> message) {
  std::string dump;
  for (const std::uint8_t byte : message) dump.append(std::to_string(byte)).append("-");
  parts().log.Line("Send : " + std::to_string(state().send_sequence));
  parts().log.Line("Data Out = " + dump);

  constexpr std::uint8_t kChannel = 1;
  const std::size_t length = std::min<std::size_t>(message.size(), kMaxMessage);
  std::array<std::uint8_t, kServerPacketOut> packet{};
  packet[0] = kFromExchange;
  packet[1] = parts().address.byte();
  packet[3] = kChannel;
  packet[4] = static_cast<std::uint8_t>(length);
  std::copy_n(message.begin(), length, packet.begin() + kServerHeaderOut);
  // A closed socket is not an error here: the wait for the reply times out.
  [[maybe_unused]] const bool taken = line_.Write(packet);
}

}  // namespace tarvok::link
