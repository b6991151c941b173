#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "store/ini_text.h"

namespace tarvok {

/**
 * Changes to an INI file that become one write. Reads see the changes made so far.
 *
 * A replaced key keeps its place, a new key goes behind the last key of its section, a new section to the
 * end. All other lines stay byte for byte. The base must live as long as the edit.
 */
class IniEdit {
 public:
  explicit IniEdit(const IniText& base) : base_(base) {}
  IniEdit(const IniEdit&) = delete;
  IniEdit& operator=(const IniEdit&) = delete;

  /** As IniText::Get. */
  std::string Get(std::string_view section, std::string_view key) const;
  /** Writes key=value; "" makes an empty key. The value is cut at its first NUL, CR or LF. */
  void Set(std::string_view section, std::string_view key, std::string_view value);
  void DeleteKey(std::string_view section, std::string_view key);
  /** Deletes every section of that name, the lines in it included. */
  void DeleteSection(std::string_view section);

  /** What the changes are made to. */
  const IniText& base() const { return base_; }
  bool changed() const { return changed_; }
  /** The first value set that a reader would cut, as "section key"; "" if there is none. */
  std::string TooLong() const;
  /** The bytes of the file with all changes in it. */
  std::string Bytes() const;

 private:
  struct KeyEdit {
    bool deleted = false;
    std::string name;
    std::string value;
  };
  struct SectionEdit {
    bool deleted = false;  // the base's sections of this name are gone; new_keys may make a new one
    std::string name;
    std::map<std::string, KeyEdit> keys;   // by folded name
    std::vector<const KeyEdit*> new_keys;  // those of keys that the base does not have, as first set
  };

  SectionEdit& EditOf(std::string_view section);
  const SectionEdit* FindEdit(std::string_view section) const;
  void AppendNewKeys(const SectionEdit& edit, std::string_view line_end, std::string& out) const;
  std::vector<const SectionEdit*> EditOfEachSection() const;
  void AppendLine(const IniText::Line& line, const SectionEdit* edit, std::string& out) const;

  const IniText& base_;
  bool changed_ = false;
  std::map<std::string, SectionEdit> sections_;  // by folded name
  std::vector<std::string> section_order_;       // folded names in the order of their first change
};

}  // namespace tarvok
