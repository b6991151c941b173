#pragma once

#include <string>
#include <string_view>

namespace tarvok::store {

/** A text of several lines as one: a blank for each line break. */
inline std::string InOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c == '\n') line += ' ';
    if (c != '\r' && c != '\n') line += c;
  }
  return line;
}

}  // namespace tarvok::store
