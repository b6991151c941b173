#include "sessions/session_words.h"

namespace tarvok::sessions {
std::string Heading(std::string_view what, const Transport& transport) {
  return "### " + std::string(what) + " by " + std::string(transport.name) + " ###" + std::string(kLineEnd);
}

std::string Dots(std::string_view text) {
  constexpr std::size_t kColumn = 47;
  constexpr std::size_t kFewest = 3;
  return std::string(text.size() + kFewest > kColumn ? kFewest : kColumn - text.size(), '.');
}

}  // namespace tarvok::sessions
