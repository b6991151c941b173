#pragma once

#include <string>
#include <string_view>

#include "programs/uses.h"

namespace tarvok::ctl {

// Where the programs find and put their files. An application object must exist.

/**
 * The system file: beside the program, then `tarvok/system.tvs` in the data folders of the user and of the
 * machine, then in `../share/tarvok`. The first that exists; if none does, the path beside the program.
 */
std::string SystemFile();
/** "System file: PATH", and whether it is missing. */
std::string SystemFileLine();
/** Where each load makes a private folder for its project. */
std::string TemporaryFolder();
/** `send.log` beside the program if the system file is there too and the folder can be written, otherwise in
 * the user's state folder. */
std::string DefaultLog();
/** A folder of this user's data, not made yet. */
std::string DataFolder(std::string_view name);
/** Makes a folder and its parents. */
bool MakeFolder(const std::string& folder);

}  // namespace tarvok::ctl
