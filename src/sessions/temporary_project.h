#pragma once

#include <memory>
#include <string>

#include "sessions/uses.h"
#include "store/file_system.h"

namespace tarvok::sessions {

/**
 * The project that a load builds: `outcfg.tvk` in a folder of its own, which only the user can open. So two loads at the
 * same time never meet. The file is written by the first section that is decoded.
 */
class TemporaryProject {
 public:
  /** Makes the folder in `parent`; the error names `parent`. */
  static Result<std::unique_ptr<TemporaryProject>> Make(FileSystem& files, const std::string& parent);
  /** A file that was not discarded stays, so that what was loaded can still be saved by hand. */
  ~TemporaryProject();
  TemporaryProject(const TemporaryProject&) = delete;
  TemporaryProject& operator=(const TemporaryProject&) = delete;

  const std::string& path() const { return path_; }
  /** The file is no longer needed and is removed with this object. */
  void Discard() { discarded_ = true; }

 private:
  TemporaryProject(FileSystem& files, std::string folder);

  FileSystem& files_;
  std::string folder_;
  std::string path_;
  bool discarded_ = false;
};

}  // namespace tarvok::sessions
