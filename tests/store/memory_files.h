#pragma once

#include <map>
#include <memory>
#include <string>

#include "store/file_system.h"
#include "tests/floors.h"

namespace tarvok::test {

/** Files in memory. The n-th changing call can be made to fail, or to be the last one before the power goes.
 */
class MemoryFiles : public FileSystem {
 public:
  struct File {
    std::string bytes;
    std::uint64_t inode = 0;
    std::int64_t modified = 0;
  };

  std::map<std::string, File> files;
  int fail_at = 0;  // which call fails, from 1; 0 for none
  ErrorKind fail_kind = ErrorKind::kNoSpace;
  bool fail_for_good = false;  // all later calls fail as well: the process is gone
  bool read_only_folder = false;
  std::string unreadable;  // a path
  int calls = 0;
  int reads = 0;

  void Put(const std::string& path, std::string bytes) {
    files[path] = {std::move(bytes), ++last_inode_, ++clock_};
  }
  std::string Bytes(const std::string& path) { return files[path].bytes; }

  FileIdentity Identify(const std::string& path) override {
    const auto found = files.find(path);
    if (found == files.end()) return {};
    const File& file = found->second;
    return {true, true, 1, file.inode, static_cast<std::int64_t>(file.bytes.size()), file.modified};
  }
  Result<std::string> Read(const std::string& path) override {
    ++reads;
    if (Fails() || path == unreadable) return Error(path);
    const auto found = files.find(path);
    if (found == files.end()) return Status(ErrorKind::kNotFound, path + ": not there");
    return found->second.bytes;
  }
  std::string Resolve(const std::string& path) override { return path; }
  Status WriteNew(const std::string& path, std::string_view bytes, const std::string&, Flush) override {
    if (read_only_folder) return {ErrorKind::kNoPermission, path};
    if (files.contains(path)) return {ErrorKind::kExists, path};
    if (Fails()) {
      // A process that dies here leaves half a file; an error return leaves none.
      if (fail_for_good) Put(path, std::string(bytes.substr(0, bytes.size() / 2)));
      return Error(path);
    }
    Put(path, std::string(bytes));
    return {};
  }
  Status Overwrite(const std::string& path, std::string_view bytes) override {
    if (Fails()) return Error(path);
    files[path] = {std::string(bytes), files[path].inode, ++clock_};
    return {};
  }
  Status Rename(const std::string& from, const std::string& to, Flush) override {
    if (Fails()) return Error(to);
    files[to] = files[from];
    files.erase(from);
    return {};
  }
  Status Remove(const std::string& path) override {
    if (Fails()) return Error(path);
    files.erase(path);
    return {};
  }
  Result<std::vector<std::string>> List(const std::string& folder) override {
    std::vector<std::string> names;
    for (const auto& [path, file] : files) {
      if (path.starts_with(folder + "/")) names.push_back(path.substr(folder.size() + 1));
    }
    return names;
  }
  Result<std::unique_ptr<FileLock>> Lock(const std::string& path) override {
    if (Fails()) return Error(path);
    return std::make_unique<FileLock>();
  }
  Result<std::string> MakePrivateFolder(const std::string& parent) override {
    if (Fails()) return Error(parent);
    return parent + "/" + std::to_string(++private_folders_);
  }

 private:
  bool Fails() {
    ++calls;
    return fail_at != 0 && (fail_for_good ? calls >= fail_at : calls == fail_at);
  }
  Status Error(const std::string& path) const { return {fail_kind, path + ": made to fail"}; }

  int private_folders_ = 0;
  std::uint64_t last_inode_ = 0;
  std::int64_t clock_ = 0;
};

}  // namespace tarvok::test
