#pragma once

#include <string>

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * Size in bytes of the test data: 6,875 counters from 0, 32 bits each, low byte first; the size of section 4.
 */
inline constexpr int kPortTestSize = 27500;

/** A random whole number, at least `low` and below `high`. For experiments; no session uses it. */
int Rand(int low, int high);

// To test a serial line on the bench; no form or command offers it. Files are in `folder`, the program's folder.

/** Sends "temp.txt" as section 4. */
bool SendPortTest(Transfer& transfer, const std::string& folder);
/** Reads section 4 into "TempGet.txt". */
bool GetPortTest(Transfer& transfer, const std::string& folder);
/** Writes the test data to "temp.txt". */
bool WritePortTestData(Transfer& transfer, const std::string& folder);

}  // namespace tarvok::sessions
