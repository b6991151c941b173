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
 * A file is parsed once and cached. Its identity, size and time are checked on every call, so changes by
 * other programs are seen. Every change reads the file again under a short lock and writes it as a whole, so
 * that two programs never lose each other's keys. `file` is a path in the platform's form.
 */
class ProjectStore {
 public:
  explicit ProjectStore(FileSystem& files) : files_(files) {}

  /**
   * The value, at most 1,999 bytes; "" if the file is missing or unreadable, or the section or key is
   * missing.
   */
  std::string GetIniValue(const std::string& file, std::string_view section, std::string_view key);
  /** Writes key=value, creating section and file if necessary. An empty value writes an empty key. */
  Status SetIniValue(const std::string& file, std::string_view section, std::string_view key,
                     std::string_view value);
  /** Removes the key. A missing file, section or key is not an error, and nothing is created. Programs
   * delete through Update; this and DeleteIniSection complete the single calls. */
  Status DeleteIniKey(const std::string& file, std::string_view section, std::string_view key);
  Status DeleteIniSection(const std::string& file, std::string_view section);

  /**
   * The file as it is now, for reading many keys from one consistent state. Empty if the file is missing or
   * unreadable. As long as the file's bytes are the same, so is the pointer.
   */
  std::shared_ptr<const IniText> Snapshot(const std::string& file);
  /** Writes all changes that `change` makes at once. A file that exists but cannot be read is left alone. */
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

/** True if the key "Chk" of `Chk_Tarvok` is the tag "TARVOK", ignoring case and surrounding blanks. */
bool IsProject(const IniText& text);

}  // namespace tarvok::store
