#pragma once

#include <memory>
#include <string>

#include "sessions/uses.h"
#include "store/file_system.h"

namespace tarvok::sessions {

/**
 * The project that a load builds: `outcfg.tvk` in a folder of its own that only the user can open, so that
 * concurrent loads cannot collide. The file is created when the first section is decoded.
 */
class TemporaryProject {
 public:
  /** Creates the folder in `parent`; errors name `parent`. */
  static Result<std::unique_ptr<TemporaryProject>> Make(FileSystem& files, const std::string& parent);
  /** Keeps the file unless it was discarded, so that a loaded project can still be saved by hand. */
  ~TemporaryProject();
  TemporaryProject(const TemporaryProject&) = delete;
  TemporaryProject& operator=(const TemporaryProject&) = delete;

  const std::string& path() const { return path_; }
  /** Marks the file as no longer needed; the destructor removes it. */
  void Discard() { discarded_ = true; }

 private:
  TemporaryProject(FileSystem& files, std::string folder);

  FileSystem& files_;
  std::string folder_;
  std::string path_;
  bool discarded_ = false;
};

}  // namespace tarvok::sessions
