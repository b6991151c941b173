#pragma once

#include <string>

#include "programs/uses.h"
#include "store/project_store.h"

namespace tarvok::ctl {

/** Drives the rules of the editor `form` with the keys and clicks of a script, a command a line; from
 * standard input where `script` is empty. What the form says and asks comes out as lines. */
int Edit(ProjectStore& store, const std::string& system_file, const std::string& project,
         const std::string& form, const std::string& script);

}  // namespace tarvok::ctl
