#pragma once

#include "sections/uses.h"

namespace tarvok::sections {

/** The wire values that mean "not set", in one byte and in 16 bits. */
inline constexpr int kUnsetByte = 255;
inline constexpr int kUnsetWord = 65535;

}  // namespace tarvok::sections
