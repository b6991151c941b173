#pragma once

#include <cstdlib>

/** What has to hold for every input; where it does not, the fuzzer keeps the input. */
inline void Demand(bool holds) {
  if (!holds) std::abort();
}
