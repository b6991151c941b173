#pragma once

#include <string>

namespace tarvok::ctl {

/** Where the program finds and puts its files. An application object must exist. */
std::string SystemFile();
std::string TemporaryProject();
/** `send.log` in the program's folder where that is writable, else in the user's state folder. */
std::string DefaultLog();

}  // namespace tarvok::ctl
