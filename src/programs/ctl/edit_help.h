#pragma once

#include <string>

#include "programs/uses.h"

namespace tarvok::ctl {

/** The help of `edit` after its options: the forms, and the commands of a script. */
std::string EditHelp();

}  // namespace tarvok::ctl
