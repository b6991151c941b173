#pragma once

#include <vector>

#include "project/check.h"
#include "project/uses.h"

namespace tarvok::project {

/** Findings in the header section: a key that nobody reads, by which a setting that was meant stays as it was, and a
 * value with which no exchange is reached, or another one than it names. */
void CheckHeader(const IniText& project, std::vector<Finding>& findings);

}  // namespace tarvok::project
