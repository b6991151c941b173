#pragma once

#include "exchange/uses.h"
#include "link/frame.h"

namespace tarvok::exchange {

/** The image of a section that nobody has filled yet, `size` bytes: what an empty project would have sent. */
Bytes BlankImage(int section, int size);

/** A route map image of 200 short records in the records of `size` bytes in all, as an exchange 1.01 gives
 * back what it was sent: in the longer record "*" and "#" have codes of their own, and the byte behind is not
 * set. */
Bytes RouteMapForLoad(const Bytes& sent, int size);

inline constexpr int kRouteMapSection = 8;

}  // namespace tarvok::exchange
