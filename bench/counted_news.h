#pragma once

#include <cstdint>

namespace tarvok::bench {

/** How often this process has asked for memory so far. */
std::int64_t NewsSoFar();

}  // namespace tarvok::bench
