#pragma once

#include <string>
#include <string_view>

#include "programs/uses.h"

namespace tarvok::ctl {

// Locations of the programs' files. An application object must exist.

/**
 * The system file: next to the program, then `tarvok/system.tvs` in the data folders of the user and of the
 * machine, then in `../share/tarvok`. Returns the first that exists; if there is none, the path next to the
 * program.
 */
std::string SystemFile();
/** "System file: PATH", and whether it is missing. */
std::string SystemFileLine();
/** Where each load creates a private folder for its project. */
std::string TemporaryFolder();
/**
 * `send.log` next to the program if the system file is there too and the folder is writable, otherwise in the
 * user's state folder.
 */
std::string DefaultLog();
/** A folder for this user's data; it may not exist yet. */
std::string DataFolder(std::string_view name);
/** Creates a folder and its parents; false on failure. */
bool MakeFolder(const std::string& folder);

}  // namespace tarvok::ctl
