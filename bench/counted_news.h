#pragma once

#include <cstdint>

#include "tests/floors.h"

namespace tarvok::bench {

/** How often this process has asked for memory so far, and for how many bytes. */
std::int64_t NewsSoFar();
std::int64_t BytesSoFar();

}  // namespace tarvok::bench
