#pragma once

#include <string_view>

#include "programs/uses.h"

namespace tarvok::ctl {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongCommandLine = 2;

/** Says one line on standard error. */
void Tell(std::string_view line);
/** Says on standard error, in one line that begins with "note:", what is to be known beside a result or in front of a
 * reason. */
void Note(std::string_view line);
/** Says the reason on standard error, one line, and returns the status of an operation that failed. */
int Fail(std::string_view reason);
/** The same for a command line that is wrong. */
int Misused(std::string_view reason);
/** The end of the program: `status`, or a failure where what it wrote on standard output did not get there. */
int EndOutput(int status);

}  // namespace tarvok::ctl
