#pragma once

#include <string>

#include "store/project_store.h"

namespace tarvok::store {

/**
 * Returns why the open project cannot be read or written at the moment: its file is missing (deleted, or on a
 * drive that was removed) or is no longer a project. Returns "" if all is well. A write to such a file would
 * create a project of a single section, which nothing can open.
 */
std::string WhyNoProject(ProjectStore& store, const std::string& file);

}  // namespace tarvok::store
