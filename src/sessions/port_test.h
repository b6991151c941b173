#pragma once

#include <string>

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Bytes of the test data: 6,875 counters from 0, 32 bits each, low byte first; as many as section 4 has. */
inline constexpr int kPortTestSize = 27500;

/** A random whole number from `low` up to but for `high`, for tries; no session asks for one. */
int Rand(int low, int high);

// Functions to try a serial line, which no form shows in normal use. Files lie in `folder`, the program's.

/** Sends "temp.txt" as section 4. */
bool SendPortTest(Transfer& transfer, const std::string& folder);
/** Reads section 4 into "TempGet.txt". */
bool GetPortTest(Transfer& transfer, const std::string& folder);
/** Writes the test data to "temp.txt". */
bool WritePortTestData(Transfer& transfer, const std::string& folder);

}  // namespace tarvok::sessions
