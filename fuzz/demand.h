#pragma once

#include <cstdlib>

/** States what must hold for every input. If it does not, the fuzzer reports the input. */
inline void Demand(bool holds) {
  if (!holds) std::abort();
}
