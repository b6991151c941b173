#pragma once

#include <cstdint>

#include "tests/floors.h"

namespace tarvok::bench {

/** The number of allocations of this process so far, and their total size in bytes. */
std::int64_t NewsSoFar();
std::int64_t BytesSoFar();

}  // namespace tarvok::bench
