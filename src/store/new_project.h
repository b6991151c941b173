#pragma once

#include <string>
#include <string_view>

#include "store/project_store.h"

namespace tarvok {

/** What the user is told where the system file is missing or can't be copied. */
inline constexpr std::string_view kNoSystemFile =
    "Cannot find system file !!\r\nPlease reinstall program and try again.";

/** The question before a file that the user named is replaced. */
inline constexpr std::string_view kFileExists = "File already exist, Do you want to replace?";

inline constexpr std::string_view kSystemFileName = "system.tvs";

/** The path of a file in the program's folder, with "/" between and none doubled at the root. */
std::string InFolder(const std::string& folder, std::string_view name);

/**
 * Creates a project at `file` as a copy of the system file without its country table, in one write: an
 * existing file is replaced only once the copy is complete. A system file that can't be read, or a copy that
 * can't be written, gives the text above (the second with its cause behind it) and leaves everything as it
 * was.
 */
Status NewDefault(ProjectStore& store, const std::string& system_file, const std::string& file);

}  // namespace tarvok
