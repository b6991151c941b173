#pragma once

#include <string>

#include "programs/uses.h"

namespace tarvok::ctl {

/** What the help of `edit` says behind its options: the forms, and the commands of a script. */
std::string EditHelp();

}  // namespace tarvok::ctl
