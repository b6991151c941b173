#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/status.h"

namespace tarvok::store {

/** What tells one state of a file from another without reading it. */
struct FileIdentity {
  bool exists = false;
  /** False while the file is so fresh that a further change could leave the same time behind. */
  bool settled = true;
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  std::int64_t modified_ns = 0;
  /** False for a folder, a device, a pipe: what holds no bytes to be replaced. */
  bool regular = true;

  bool operator==(const FileIdentity&) const = default;
};

/** When written bytes must be on the disk: before the call returns, or whenever the system gets to it, which is enough for
 * what can be made again. */
enum class Flush { kNow, kLater };

/** Held while a file is read afresh, changed and written; given back by its destructor. */
class FileLock {
 public:
  virtual ~FileLock() = default;
};

/**
 * The calls through which the store sees files. Paths are the platform's; contents are bytes and never change
 * on the way. The programs lend a real one, the tests one that fails at the n-th call.
 */
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual FileIdentity Identify(const std::string& path) = 0;
  virtual Result<std::string> Read(const std::string& path) = 0;
  /** The file behind symbolic links, also where it is not there yet. */
  virtual std::string Resolve(const std::string& path) = 0;
  /** Makes a file that must not exist yet, with all bytes, and the permissions of
   * `like` if that file exists. Leaves no file behind where it fails. */
  virtual Status WriteNew(const std::string& path, std::string_view bytes, const std::string& like,
                          Flush flush) = 0;
  /** Gives an existing file new bytes in place, space reserved first; on an error the old ones are put back. Not safe
   * against a crash in the middle. */
  virtual Status Overwrite(const std::string& path, std::string_view bytes) = 0;
  /** Replaces `to` at once; the folder is flushed, too. */
  virtual Status Rename(const std::string& from, const std::string& to, Flush flush) = 0;
  /** Removes a file or an empty folder. */
  virtual Status Remove(const std::string& path) = 0;
  /** The names of what lies in a folder, in no order. */
  virtual Result<std::vector<std::string>> List(const std::string& folder) = 0;
  /** Keeps other writers of the folder of `path` out for a short time. */
  virtual Result<std::unique_ptr<FileLock>> Lock(const std::string& path) = 0;
  /** Makes a new folder in `parent` that only this user can open, and returns its path. An error names `parent`. */
  virtual Result<std::string> MakePrivateFolder(const std::string& parent) = 0;
};

}  // namespace tarvok::store
