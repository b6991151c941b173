#pragma once

#include <string>

namespace tarvok::ctl {

/** What the help of `edit` says behind its options: the forms, and the commands of a script. */
std::string EditHelp();

}  // namespace tarvok::ctl
