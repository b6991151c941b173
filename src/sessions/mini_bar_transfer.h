#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Sends the 512 records of the mini bar list to exchanges of version 106 or later. */
bool SendMiniBarList(Transfer& transfer);
/**
 * Reads the list from an exchange of version 106 to 110 into the temporary project, which starts as a copy of
 * the open one, and asks where to store it. Always fails over the relay server, which does not pass the reply
 * to the request on.
 */
bool LoadMiniBarList(Transfer& transfer);

}  // namespace tarvok::sessions
