#pragma once

#include <functional>
#include <optional>
#include <string>

#include "tests/floors.h"

namespace tarvok::test {

/** What happens to a process at one of its system calls. */
enum class Fate {
  kNone,
  kKilledBefore,   // killed -9 when the call begins
  kKilledHalfway,  // a write puts half of its bytes, then the process is killed; other calls as kKilledBehind
  kKilledBehind,   // killed -9 when the call has done its work
  kFails,          // the call does nothing and gives the error
  kFailsForGood,   // that call and all counted ones behind it
};

/** Which calls count. */
enum class Calls {
  kAll,
  kOfFiles,     // those that name, read or change files
  kThatChange,  // those that change files, or lock them
};

struct Stop {
  Fate fate = Fate::kNone;
  int call = 0;   // counts from 1
  int error = 0;  // errno, for the fates that fail
  Calls calls = Calls::kAll;
  bool no_new_files = false;  // a folder that takes none: opening for creation fails with EACCES
};

struct Ended {
  int calls = 0;    // that counted, until the end
  int status = -1;  // what the work returned; -1 if it was killed
};

/** For the reader of a failure. */
std::string Told(const Stop& stop);

/**
 * Runs `work` in a process of its own, which is watched at every system call. Nothing where the system does not
 * allow that.
 */
std::optional<Ended> RunStopped(const std::function<int()>& work, const Stop& stop);

}  // namespace tarvok::test
