#pragma once

#include "editing/uses.h"

namespace tarvok::editing {

/** The keys that editors handle. */
enum class KeyCode { kCharacter, kBackspace, kDelete, kReturn, kEscape, kTab, kUp, kDown, kLeft, kRight };

struct Key {
  KeyCode code = KeyCode::kCharacter;
  char character = 0;  // of kCharacter: a byte of the project's code page

  static constexpr Key Of(char character) { return {KeyCode::kCharacter, character}; }
};

}  // namespace tarvok::editing
