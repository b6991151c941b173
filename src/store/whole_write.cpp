#include "store/whole_write.h"

namespace tarvok {
namespace {

/** The same error, told of the file that the user knows. */
Status About(const std::string& target, const std::string& beside, const Status& status) {
  std::string message = status.message();
  if (message.starts_with(beside)) message.replace(0, beside.size(), target);
  return {status.kind(), message};
}

}  // namespace

Status WriteWhole(FileSystem& files, const std::string& path, std::string_view bytes, Flush flush) {
  const std::string target = files.Resolve(path);
  const std::string beside = target + ".tmp";

  Status written = files.WriteNew(beside, bytes, target, flush);
  if (written.kind() == ErrorKind::kExists) {
    // Left behind by a run that was killed: writers hold the lock, so nobody is using it now.
    if (Status removed = files.Remove(beside); !removed.ok()) return removed;
    written = files.WriteNew(beside, bytes, target, flush);
  }
  if (written.kind() == ErrorKind::kNoPermission && files.Identify(target).exists) {
    return files.Overwrite(target, bytes);
  }
  if (!written.ok()) return About(target, beside, written);

  Status renamed = files.Rename(beside, target, flush);
  if (!renamed.ok()) {
    // The first error is the one to tell; a file that can't be removed is taken over by the next save.
    [[maybe_unused]] const Status removed = files.Remove(beside);
  }
  return renamed;
}

}  // namespace tarvok
