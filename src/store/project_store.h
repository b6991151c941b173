#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "store/file_system.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::store {

/**
 * Access to project files and the system file by key.
 *
 * A file is parsed once and kept; its identity, size and time are checked at each call, so that a change by
 * anybody is seen. Each change is one whole write on the file read afresh, under a short lock, so that two
 * programs lose no key of each other. `file` is a path of the platform.
 */
class ProjectStore {
 public:
  explicit ProjectStore(FileSystem& files) : files_(files) {}

  /** The value, at most 1,999 bytes; "" for a missing or unreadable file, a missing section or key. */
  std::string GetIniValue(const std::string& file, std::string_view section, std::string_view key);
  /** Writes key=value, making section and file if need be. The empty value writes an empty key. */
  Status SetIniValue(const std::string& file, std::string_view section, std::string_view key,
                     std::string_view value);
  /** Removes the key; a missing file, section or key is no error and creates nothing. */
  Status DeleteIniKey(const std::string& file, std::string_view section, std::string_view key);
  Status DeleteIniSection(const std::string& file, std::string_view section);

  /** The file as it is now, to read many keys from one state of it; empty text for a missing or unreadable
   * file. */
  std::shared_ptr<const IniText> Snapshot(const std::string& file);
  /** All changes that `change` makes, as one write. A file that is there but can't be read is left alone. */
  Status Update(const std::string& file, const std::function<void(IniEdit&)>& change,
                Flush flush = Flush::kNow);

  FileSystem& files() { return files_; }

 private:
  struct Cached {
    FileIdentity identity;
    std::shared_ptr<const IniText> text;
  };

  Result<std::shared_ptr<const IniText>> Load(const std::string& file);

  FileSystem& files_;
  std::map<std::string, Cached> cache_;
};

/** A project is a file whose key "Chk" of `Chk_Tarvok` is the tag "TARVOK", blanks around it and case aside.
 */
bool IsProject(const IniText& text);

}  // namespace tarvok::store
