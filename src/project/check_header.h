#pragma once

#include <vector>

#include "project/check.h"
#include "project/uses.h"

namespace tarvok::project {

/** Adds the findings in the header section: unknown keys, which are often misspelled settings, and values
 * with which the exchange cannot be reached. */
void CheckHeader(const IniText& project, std::vector<Finding>& findings);

}  // namespace tarvok::project
