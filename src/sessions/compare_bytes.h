#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Sends to older exchanges are not compared, whatever the switch says. */
inline constexpr int kLowestComparedVersion = 109;

/** Sends each section, once, reads it back and compares the bytes. A difference sends the section again; the
 * fourth one ends the session with the section as the exchange holds it. */
bool SendSectionsCompared(Transfer& transfer, const IniText& project);

}  // namespace tarvok::sessions
