#pragma once

#include <string>

#include "programs/uses.h"
#include "store/project_store.h"

namespace tarvok::ctl {

/**
 * Operates the editor `form` with the keys and clicks of a script, one command per line; reads standard input
 * if `script` is empty. Prints what the form shows and asks.
 */
int Edit(ProjectStore& store, const std::string& system_file, const std::string& project,
         const std::string& form, const std::string& script);

/** The help of `edit` after its options: the forms, and the commands of a script. */
std::string EditHelp();

}  // namespace tarvok::ctl
