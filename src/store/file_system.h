#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/status.h"

namespace tarvok::store {

/** Distinguishes one state of a file from another without reading it. */
struct FileIdentity {
  bool exists = false;
  /** False while the file is too recent for its time stamp to prove that nothing has changed since. */
  bool settled = true;
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  std::int64_t modified_ns = 0;
  /** False for a folder, device or pipe, whose contents cannot be replaced. */
  bool regular = true;

  bool operator==(const FileIdentity&) const = default;
};

/**
 * When written bytes must be on the disk: before the call returns, or whenever the system gets to it. The
 * latter is enough for files that can be recreated.
 */
enum class Flush { kNow, kLater };

/** Held while a file is read again, changed and written. The destructor releases it. */
class FileLock {
 public:
  virtual ~FileLock() = default;
};

/**
 * The file system as the store sees it. Paths are in the platform's form; contents are bytes and pass through
 * unchanged. The programs supply the real one, the tests one that fails at the n-th call.
 */
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual FileIdentity Identify(const std::string& path) = 0;
  virtual Result<std::string> Read(const std::string& path) = 0;
  /** Returns the file that symbolic links lead to, even if it does not exist yet. */
  virtual std::string Resolve(const std::string& path) = 0;
  /**
   * Creates a file that must not exist yet, with all bytes and, if the file `like` exists, its permissions.
   * Leaves no file behind on failure.
   */
  virtual Status WriteNew(const std::string& path, std::string_view bytes, const std::string& like,
                          Flush flush) = 0;
  /**
   * Replaces the contents of an existing file in place. Reserves the space first, and puts the old bytes back
   * on an error. Not safe against a crash midway.
   */
  virtual Status Overwrite(const std::string& path, std::string_view bytes) = 0;
  /** Replaces `to` atomically. The folder is flushed, too. */
  virtual Status Rename(const std::string& from, const std::string& to, Flush flush) = 0;
  /** Removes a file or an empty folder. */
  virtual Status Remove(const std::string& path) = 0;
  /** The names of the entries in a folder, in no particular order. */
  virtual Result<std::vector<std::string>> List(const std::string& folder) = 0;
  /** Locks out other writers in the folder of `path` for a short time. */
  virtual Result<std::unique_ptr<FileLock>> Lock(const std::string& path) = 0;
  /**
   * Creates a new folder in `parent` that only this user can open, and returns its path. Errors name
   * `parent`.
   */
  virtual Result<std::string> MakePrivateFolder(const std::string& parent) = 0;
};

}  // namespace tarvok::store
