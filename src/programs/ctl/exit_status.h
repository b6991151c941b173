#pragma once

#include <string_view>

#include "programs/uses.h"

namespace tarvok::ctl {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongCommandLine = 2;

/** Prints one line to standard error. */
void Tell(std::string_view line);
/**
 * Prints a line that begins with "note:" to standard error: something to know in addition to a result, or
 * before a reason.
 */
void Note(std::string_view line);
/** Prints the reason in one line to standard error, and returns the status of a failed operation. */
int Fail(std::string_view reason);
/** Like Fail, for an invalid command line. */
int Misused(std::string_view reason);
/** Call at the end of the program: returns `status`, or failure if standard output could not be written. */
int EndOutput(int status);

}  // namespace tarvok::ctl
