#pragma once

#include "exchange/uses.h"
#include "link/frame.h"

namespace tarvok::exchange {

/** The image of a section that has never been set, `size` bytes: what an empty project would send. */
Bytes BlankImage(int section, int size);

/**
 * A route map image of 200 short records, converted to longer records of `size` bytes in total, as an
 * exchange 1.01 returns it: in the longer record "*" and "#" have codes of their own, and the byte after them
 * is not set.
 */
Bytes RouteMapForLoad(const Bytes& sent, int size);

inline constexpr int kRouteMapSection = 8;

}  // namespace tarvok::exchange
