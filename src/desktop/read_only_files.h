#pragma once

#include "store/file_system.h"

namespace tarvok {

/** Files to look at: whatever would change one is refused. For what reads by way of something that may write
 * back, and must not. */
class ReadOnlyFiles : public FileSystem {
 public:
  explicit ReadOnlyFiles(FileSystem& files) : files_(files) {}

  FileIdentity Identify(const std::string& path) override { return files_.Identify(path); }
  Result<std::string> Read(const std::string& path) override { return files_.Read(path); }
  std::string Resolve(const std::string& path) override { return files_.Resolve(path); }
  Result<std::vector<std::string>> List(const std::string& folder) override { return files_.List(folder); }
  Status WriteNew(const std::string& path, std::string_view, const std::string&, Flush) override {
    return No(path);
  }
  Status Overwrite(const std::string& path, std::string_view) override { return No(path); }
  Status Rename(const std::string&, const std::string& to, Flush) override { return No(to); }
  Status Remove(const std::string& path) override { return No(path); }
  Result<std::unique_ptr<FileLock>> Lock(const std::string& path) override { return No(path); }

 private:
  static Status No(const std::string& path) { return {ErrorKind::kNoPermission, path + ": only looked at"}; }

  FileSystem& files_;
};

}  // namespace tarvok
