#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Sends to older exchanges are never compared, even if the switch is on. */
inline constexpr int kLowestComparedVersion = 109;

/**
 * Sends each section once, reads it back and compares the bytes. A section that differs is sent again; the
 * fourth difference ends the session and leaves the section as the exchange has it.
 */
bool SendSectionsCompared(Transfer& transfer, const IniText& project);

}  // namespace tarvok::sessions
