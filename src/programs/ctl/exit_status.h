#pragma once

#include <string_view>

namespace tarvok::ctl {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongCommandLine = 2;

/** Says the reason on standard error, one line, and returns the status of an operation that failed. */
int Fail(std::string_view reason);
/** The same for a command line that is wrong. */
int Misused(std::string_view reason);

}  // namespace tarvok::ctl
