#pragma once

#include <string>
#include <string_view>

#include "store/file_system.h"

namespace tarvok::store {

/**
 * The one way in which a file is written: beside the target, flushed, renamed, so that a crash leaves the old
 * bytes or the new ones. Symbolic links and permissions stay. Where the folder takes no new file, an existing
 * file is written in place. On an error the target is as it was. What is there and no regular file is refused.
 */
Status WriteWhole(FileSystem& files, const std::string& path, std::string_view bytes,
                  Flush flush = Flush::kNow);

/** Whether WriteWhole could make or replace the file: tried with an empty file beside it, which goes again. */
Status CanWriteWhole(FileSystem& files, const std::string& path);

/** Whether both paths lead to one file, or to the place where one is to come. */
bool IsSameFile(FileSystem& files, const std::string& a, const std::string& b);

}  // namespace tarvok::store
