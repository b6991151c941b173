#pragma once

#include <string>

#include "programs/uses.h"

namespace tarvok::programs {

/**
 * Validator for an option that requires a text: returns "" or what is wrong. An empty text would count as not
 * given.
 */
inline std::string IsGiven(const std::string& text) {
  return text.empty() ? "must not be empty" : std::string();
}

}  // namespace tarvok::programs
