#pragma once

#include <functional>
#include <optional>
#include <string>

#include "tests/floors.h"

namespace tarvok::test {

/** What happens to a process at one of its system calls. */
enum class Fate {
  kNone,
  kKilledBefore,   // killed with -9 when the call begins
  kKilledHalfway,  // killed with -9 after a write of half the bytes; other calls as kKilledAfter
  kKilledAfter,    // killed with -9 when the call is complete
  kFails,          // the call does nothing and returns the error
  kFailsForGood,   // this call and all later ones that count fail
};

/** Which calls count. */
enum class Calls {
  kAll,
  kOfFiles,     // those that name, read or change files
  kThatChange,  // those that change files, or lock them
};

struct Stop {
  Fate fate = Fate::kNone;
  int call = 0;   // counting from 1
  int error = 0;  // errno, for the fates that fail
  Calls calls = Calls::kAll;
  bool no_new_files = false;  // the folder accepts no new files: opening for creation fails with EACCES
};

struct Ended {
  int calls = 0;    // those that counted, until the end
  int status = -1;  // the result of the work; -1 if it was killed
};

/** Describes the stop for failure messages. */
std::string Told(const Stop& stop);

/**
 * Runs `work` in a process of its own, traced at every system call. nullopt if the system does not permit
 * that.
 */
std::optional<Ended> RunStopped(const std::function<int()>& work, const Stop& stop);

}  // namespace tarvok::test
