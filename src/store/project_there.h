#pragma once

#include <string>

#include "store/project_store.h"

namespace tarvok::store {

/** Why nothing can be read from the open project, or written to it, just now: its file is gone, with the stick
 * that it was on or by another program, or it is no project any more. "" where all is well. What is written to
 * such a file all the same would be a project of one section, which nothing opens again. */
std::string WhyNoProject(ProjectStore& store, const std::string& file);

}  // namespace tarvok::store
