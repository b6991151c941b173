#pragma once

#include <string>

#include "programs/uses.h"
#include "store/project_store.h"

namespace tarvok::ctl {

/** Returned by `Diff` if one of the files is not a project. */
inline constexpr int kNotComparable = 2;

// The commands that examine projects. They print one finding per line to standard output, in UTF-8.

/**
 * Prints every invalid value and every dangling reference as `SECTION KEY FIELD: what is wrong`. Returns done
 * if there are none, otherwise failed.
 */
int Check(ProjectStore& store, const std::string& project);

/**
 * Prints the differences between two projects as `ROW · FIELD: old → new`. Returns 0 if they are equivalent,
 * 1 if they differ, kNotComparable if one is not a project. Of passwords only the fact that they changed is
 * shown, unless `show_secrets` is set.
 */
int Diff(ProjectStore& store, const std::string& first, const std::string& second, bool show_secrets);

}  // namespace tarvok::ctl
