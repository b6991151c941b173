#include "store/whole_write.h"

namespace tarvok {

Status WriteWhole(FileSystem& files, const std::string& path, std::string_view bytes) {
  const std::string target = files.Resolve(path);
  const std::string beside = target + ".tmp";

  Status written = files.WriteNew(beside, bytes, target);
  if (written.kind() == ErrorKind::kExists) {
    // Left behind by a run that was killed: writers hold the lock, so nobody is using it now.
    if (Status removed = files.Remove(beside); !removed.ok()) return removed;
    written = files.WriteNew(beside, bytes, target);
  }
  if (written.kind() == ErrorKind::kNoPermission && files.Identify(target).exists) {
    return files.Overwrite(target, bytes);
  }
  if (!written.ok()) return written;

  Status renamed = files.Rename(beside, target);
  if (!renamed.ok()) {
    // The first error is the one to tell; a file that can't be removed is taken over by the next save.
    [[maybe_unused]] const Status removed = files.Remove(beside);
  }
  return renamed;
}

}  // namespace tarvok
