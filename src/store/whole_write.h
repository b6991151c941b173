#pragma once

#include <string>
#include <string_view>

#include "store/file_system.h"

namespace tarvok::store {

/**
 * Writes a file so that a crash leaves either the old bytes or the new ones: to a temporary file in the same
 * folder, flushed, then renamed. All files are written this way. Symbolic links and permissions are kept. If
 * no file can be created in the folder, an existing file is overwritten in place. On an error the target is
 * unchanged. A target that exists but is not a regular file is refused.
 */
Status WriteWhole(FileSystem& files, const std::string& path, std::string_view bytes,
                  Flush flush = Flush::kNow);

/**
 * Whether WriteWhole could create or replace the file. Tries with an empty temporary file, which is deleted
 * afterwards.
 */
Status CanWriteWhole(FileSystem& files, const std::string& path);

/** Whether both paths lead to the same file, or would if it were created. */
bool IsSameFile(FileSystem& files, const std::string& a, const std::string& b);

}  // namespace tarvok::store
