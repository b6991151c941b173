#include "sessions/session_words.h"

namespace tarvok::sessions {
namespace {

std::string_view WayOf(LinkMode mode) {
  switch (mode) {
    case LinkMode::kSerial:
      return "Serial";
    case LinkMode::kModem:
      return "Modem";
    case LinkMode::kLanToSerial:
      return "LAN to Serial";
    case LinkMode::kLan:
      return "LAN";
    default:
      return "Server";
  }
}

}  // namespace

std::string Heading(std::string_view what, LinkMode mode) {
  return "### " + std::string(what) + " by " + std::string(WayOf(mode)) + " ###" + std::string(kLineEnd);
}

std::string Dots(std::string_view text) {
  constexpr std::size_t kColumn = 47;
  constexpr std::size_t kFewest = 3;
  return std::string(text.size() + kFewest > kColumn ? kFewest : kColumn - text.size(), '.');
}

}  // namespace tarvok::sessions
