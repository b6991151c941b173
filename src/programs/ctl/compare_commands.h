#pragma once

#include <string>

#include "programs/uses.h"
#include "store/project_store.h"

namespace tarvok::ctl {

/** What `Diff` returns where one of the two files is no project. */
inline constexpr int kNotComparable = 2;

// The commands that judge projects. What they find goes to standard output, a line each, in UTF-8.

/** Tells every value that no editor could have written and every reference that points nowhere, as
 * `SECTION KEY FIELD: what is wrong`. Returns done without a word, or failed where there is any. */
int Check(ProjectStore& store, const std::string& project);

/** Tells what differs between two projects, as `ROW · FIELD: old → new`. Returns 0 where they mean the same,
 * 1 where they differ, kNotComparable where one is no project. Passwords only show that they changed unless
 * `show_secrets`. */
int Diff(ProjectStore& store, const std::string& first, const std::string& second, bool show_secrets);

}  // namespace tarvok::ctl
