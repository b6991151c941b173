#include "store/whole_write.h"

#include <filesystem>

namespace tarvok::store {
namespace {

/** The same error, naming the file that the user knows. */
Status About(const std::string& target, const std::string& beside, const Status& status) {
  std::string message = status.message();
  if (message.starts_with(beside)) message.replace(0, beside.size(), target);
  return {status.kind(), message};
}

/**
 * The file that a write to `path` replaces or creates. Devices, pipes and folders are refused, since the
 * rename would put a file in their place.
 */
Result<std::string> TargetOf(FileSystem& files, const std::string& path) {
  const FileIdentity there = files.Identify(path);
  if (there.exists && !there.regular) return Status(ErrorKind::kInputOutput, path + ": not a regular file");
  return files.Resolve(path);
}

constexpr std::string_view kBeside = ".tmp";

}  // namespace

Status CanWriteWhole(FileSystem& files, const std::string& path) {
  const Result<std::string> target = TargetOf(files, path);
  if (!target.ok()) return target.status();
  const Result<std::unique_ptr<FileLock>> lock = files.Lock(path);
  if (!lock.ok()) return lock.status();
  const std::string beside = target.value() + std::string(kBeside);
  const Status made = files.WriteNew(beside, {}, target.value(), Flush::kLater);
  if (made.ok()) return files.Remove(beside);
  const bool in_place = made.kind() == ErrorKind::kNoPermission && files.Identify(path).exists;
  return in_place || made.kind() == ErrorKind::kExists ? Status() : About(target.value(), beside, made);
}

bool IsSameFile(FileSystem& files, const std::string& a, const std::string& b) {
  const auto same = [&](const std::string& one, const std::string& other) {
    const FileIdentity first = files.Identify(one);
    const FileIdentity second = files.Identify(other);
    return first.exists && second.exists && first.device == second.device && first.inode == second.inode;
  };
  if (files.Identify(a).exists || files.Identify(b).exists) return same(a, b);
  // Files that do not exist yet are the same if they have the same name in the same folder, however it is
  // spelled.
  const std::filesystem::path first = files.Resolve(a);
  const std::filesystem::path second = files.Resolve(b);
  const auto folder = [](const std::filesystem::path& path) {
    return path.has_parent_path() ? path.parent_path().string() : std::string(".");
  };
  return first.filename() == second.filename() && same(folder(first), folder(second));
}

Status WriteWhole(FileSystem& files, const std::string& path, std::string_view bytes, Flush flush) {
  const Result<std::string> resolved = TargetOf(files, path);
  if (!resolved.ok()) return resolved.status();
  const std::string& target = resolved.value();
  const std::string beside = target + std::string(kBeside);

  Status written = files.WriteNew(beside, bytes, target, flush);
  if (written.kind() == ErrorKind::kExists) {
    // Left by a program that was killed. Writers hold the lock, so nobody is using it now.
    if (Status removed = files.Remove(beside); !removed.ok()) return removed;
    written = files.WriteNew(beside, bytes, target, flush);
  }
  if (written.kind() == ErrorKind::kNoPermission && files.Identify(target).exists) {
    return files.Overwrite(target, bytes);
  }
  if (!written.ok()) return About(target, beside, written);

  Status renamed = files.Rename(beside, target, flush);
  if (!renamed.ok()) {
    // Report the first error; if the temporary file cannot be removed, the next save removes it.
    [[maybe_unused]] const Status removed = files.Remove(beside);
  }
  return renamed;
}

}  // namespace tarvok::store
