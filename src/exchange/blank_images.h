#pragma once

#include "exchange/uses.h"
#include "link/frame.h"

namespace tarvok::exchange {

/** The image of a section that has never been set, as an exchange of that version answers. For most sections
 * this is what an empty project sends. */
Bytes BlankImage(int section, int version);

/** A route map image of 200 short records, converted to the longer records of an exchange 1.01: in these "*"
 * and "#" have codes of their own, and the byte after them is not set. */
Bytes RouteMapForLoad(const Bytes& sent, int version);

}  // namespace tarvok::exchange
