#pragma once

#include <string>
#include <string_view>

namespace tarvok::store {

/** Joins the lines of a text, replacing each line break with a blank. */
inline std::string InOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c == '\n') line += ' ';
    if (c != '\r' && c != '\n') line += c;
  }
  return line;
}

}  // namespace tarvok::store
