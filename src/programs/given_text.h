#pragma once

#include <string>

#include "programs/uses.h"

namespace tarvok::programs {

/** For an option that wants a text, "" or what is wrong with it: an empty one would count as not given. */
inline std::string IsGiven(const std::string& text) {
  return text.empty() ? "an empty text names nothing" : std::string();
}

}  // namespace tarvok::programs
