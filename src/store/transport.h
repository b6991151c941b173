#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tarvok::store {

/** How the exchange is reached: the project's key "By". Any other number also means the server. */
enum class LinkMode : std::uint8_t { kServer, kSerial, kModem, kLanToSerial, kLan };

/** What is opened to reach the exchange. */
enum class PortKind : std::uint8_t { kSerial, kModem, kSocket };

/** What a line carries: link frames, bare messages, or packets of the relay server. */
enum class Wire : std::uint8_t { kLink, kLan, kServer };

/** Everything in which a transport differs from the others. */
struct Transport {
  LinkMode mode;
  PortKind port;
  Wire wire;
  std::string_view name;    // in headings, summaries and help
  std::string_view choice;  // in the settings dialog
  std::string_view option;  // of the practice exchange
};

/** The transports in the order of their numbers. */
inline constexpr std::array kTransports = {
    Transport{LinkMode::kServer, PortKind::kSocket, Wire::kServer, "Server", "Send data by server", "server"},
    Transport{LinkMode::kSerial, PortKind::kSerial, Wire::kLink, "Serial", "Send data by serial", "serial"},
    Transport{LinkMode::kModem, PortKind::kModem, Wire::kLink, "Modem", "Send data by Modem", "modem"},
    Transport{LinkMode::kLanToSerial, PortKind::kSocket, Wire::kLink, "LAN to Serial",
              "Send data by LAN to Serail", "lan-serial"},
    Transport{LinkMode::kLan, PortKind::kSocket, Wire::kLan, "LAN", "Send data by LAN", "lan"},
};

constexpr const Transport& TransportOf(LinkMode mode) {
  return kTransports[static_cast<std::size_t>(mode)];
}
static_assert([] {
  for (const Transport& transport : kTransports) {
    if (&TransportOf(transport.mode) != &transport) return false;
  }
  return true;
}());

/** True for byte streams, which carry link frames; LAN and server carry whole messages. */
constexpr bool UsesFrames(LinkMode mode) {
  return TransportOf(mode).wire == Wire::kLink;
}
constexpr bool UsesSocket(LinkMode mode) {
  return TransportOf(mode).port == PortKind::kSocket;
}

}  // namespace tarvok::store
