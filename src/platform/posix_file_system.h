#pragma once

#include "platform/uses.h"
#include "store/file_system.h"

namespace tarvok::platform {

/** Files of a POSIX system. Error messages name the path and the system's reason. */
class PosixFileSystem : public FileSystem {
 public:
  FileIdentity Identify(const std::string& path) override;
  Result<std::string> Read(const std::string& path) override;
  std::string Resolve(const std::string& path) override;
  Status WriteNew(const std::string& path, std::string_view bytes, const std::string& like,
                  Flush flush) override;
  Status Overwrite(const std::string& path, std::string_view bytes) override;
  Status Rename(const std::string& from, const std::string& to, Flush flush) override;
  Status Remove(const std::string& path) override;
  Result<std::vector<std::string>> List(const std::string& folder) override;
  /** Locks the folder itself, so that no lock file is left next to the project. Waits at most two seconds. */
  Result<std::unique_ptr<FileLock>> Lock(const std::string& path) override;
  Result<std::string> MakePrivateFolder(const std::string& parent) override;
};

}  // namespace tarvok::platform
