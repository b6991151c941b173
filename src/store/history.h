#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/file_system.h"

namespace tarvok::store {

/**
 * Called by an editor, a load or the desktop before it changes a project. It never prevents a save; failures
 * are reported elsewhere. `reason` begins with "Before ...".
 */
using KeepProject = std::function<void(const std::string& project_path, std::string_view reason)>;

/** Reasons that are used in more than one place. */
inline constexpr std::string_view kBeforeLoad = "Before a load";
inline constexpr std::string_view kBeforeBringBack = "Before an earlier version was brought back";
inline constexpr std::string_view kBeforeNew = "Before a new project took its place";

/** An earlier version of a project. */
struct KeptVersion {
  std::int64_t number = 0;  // counts up per project; the newest version has the highest
  std::int64_t time_s = 0;  // when it was kept, in seconds since 1970
  std::string reason;
  std::string file;  // its name in the project's history folder
};

/**
 * A name under which other files that belong to a project are kept: the project's own name and a hash of its
 * full path with symbolic links resolved. Usable as a folder name.
 */
std::string ProjectIdentity(FileSystem& files, const std::string& project_path);

/**
 * Earlier versions of projects, kept before an operation that might lose data. Each project has its own
 * folder, and each version in it is a complete project file whose name holds number, time, hash and reason.
 * So there is no index that could be damaged, and a user can find a version without this program.
 *
 * Identical contents are stored once, under the latest time and reason. A version that was damaged on the
 * disk no longer matches the hash in its name and is never brought back.
 */
class History {
 public:
  static constexpr std::size_t kMostVersions = 50;  // per project
  /** Creates a folder and its missing parents; false on failure. */
  using MakeFolder = std::function<bool(const std::string& folder)>;

  History(FileSystem& files, std::string folder, MakeFolder make_folder)
      : files_(files), folder_(std::move(folder)), make_folder_(std::move(make_folder)) {}

  /**
   * Keeps the project as it is now and drops the oldest versions above the limit. Does nothing if the project
   * does not exist.
   */
  Status Keep(const std::string& project_path, std::string_view reason, std::int64_t time_s);
  /** The versions, newest first; empty for a project that was never kept. */
  Result<std::vector<KeptVersion>> Versions(const std::string& project_path);
  /** The whole file; an error if it is no longer what was kept. */
  Result<std::string> Read(const std::string& project_path, const KeptVersion& version);
  /** Keeps the present state of the project, then replaces it with the version. */
  Status BringBack(const std::string& project_path, const KeptVersion& version, std::int64_t time_s);

 private:
  std::string FolderOf(const std::string& project_path);
  Status Add(const std::string& folder, const std::string& bytes, std::string_view reason,
             std::int64_t time_s);
  Status DropOldest(const std::string& folder);

  FileSystem& files_;
  std::string folder_;
  MakeFolder make_folder_;
};

}  // namespace tarvok::store
