#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "store/project_store.h"

namespace tarvok::store {

/** Shown if the system file is missing, unusable or cannot be copied. */
inline constexpr std::string_view kNoSystemFile =
    "Cannot find system file !!\r\nPlease reinstall program and try again.";

/** Asked before a file that the user chose is replaced. */
inline constexpr std::string_view kFileExists = "File already exist, Do you want to replace?";

inline constexpr std::string_view kSystemFileName = "system.tvs";

/** The path of a file in the program's folder. No slash is doubled if that is the root. */
std::string InFolder(const std::string& folder, std::string_view name);

/**
 * Reads the system file. An error has the message kNoSystemFile; if the file exists but cannot be read or
 * lacks the validity tag, the reason follows on a line of its own.
 */
Result<std::shared_ptr<const IniText>> ReadSystemFile(ProjectStore& store, const std::string& path);

/**
 * Creates the project `file` as a copy of the system file without its country table, in one write: an
 * existing file is replaced only when the copy is complete. If the system file is unusable or the copy cannot
 * be written, the message is that of ReadSystemFile, or its text followed by the reason, and nothing changes.
 */
Status NewDefault(ProjectStore& store, const std::string& system_file, const std::string& file);

}  // namespace tarvok::store
