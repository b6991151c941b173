#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/file_system.h"

namespace tarvok::store {

/** What an editor, a load or the desktop calls before it changes a project. It never keeps anybody from a
 * save: how it went is told elsewhere. `reason` begins "Before ...". */
using KeepProject = std::function<void(const std::string& project_path, std::string_view reason)>;

/** Why a version was kept, where more than one place says so. */
inline constexpr std::string_view kBeforeLoad = "Before a load";
inline constexpr std::string_view kBeforeBringBack = "Before an earlier version was brought back";
inline constexpr std::string_view kBeforeNew = "Before a new project took its place";

/** A project as it once was. */
struct KeptVersion {
  std::int64_t number = 0;  // counts up for each project; the newest has the highest
  std::int64_t time_s = 0;  // when it was kept, in seconds since 1970
  std::string reason;
  std::string file;  // its name in the project's folder of the history
};

/** A name for a project by which other files of the user's belong to it: its own name, and a number made of
 * its whole path, symbolic links followed. Good as the name of a folder. */
std::string ProjectIdentity(FileSystem& files, const std::string& project_path);

/**
 * Projects as they were, before what might lose them. Each project has a folder of its own, and each version
 * in it is a whole project file whose name says number, time, contents and reason: no list can be damaged
 * that others depend on, and a person finds a version without this program.
 *
 * The same contents stand there once, under the last time and reason. A version that was damaged on the disk
 * is told by its name and never brought back.
 */
class History {
 public:
  static constexpr std::size_t kMostVersions = 50;  // a project
  /** Makes a folder and those above it, if they are missing; false if that can't be. */
  using MakeFolder = std::function<bool(const std::string& folder)>;

  History(FileSystem& files, std::string folder, MakeFolder make_folder)
      : files_(files), folder_(std::move(folder)), make_folder_(std::move(make_folder)) {}

  /** Keeps the project as it is now, and drops the oldest versions above the limit. A project that is not
   * there has nothing to keep. */
  Status Keep(const std::string& project_path, std::string_view reason, std::int64_t time_s);
  /** The newest first; none for a project that was never kept. */
  Result<std::vector<KeptVersion>> Versions(const std::string& project_path);
  /** The whole file; an error if it is not what was kept. */
  Result<std::string> Read(const std::string& project_path, const KeptVersion& version);
  /** Makes the version the project again, once the present state is kept itself. */
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
