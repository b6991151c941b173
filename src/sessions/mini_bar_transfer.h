#pragma once

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Sends the 512 records of the mini bar list to a version from 106 on, without an upper bound. */
bool SendMiniBarList(Transfer& transfer);
/** Reads the list from a version 106 to 110 into the temporary project, which starts as a copy of the open
 * one, and asks where it goes. Over the relay server it always fails, for the request's answer is not seen
 * there. */
bool LoadMiniBarList(Transfer& transfer);

}  // namespace tarvok::sessions
