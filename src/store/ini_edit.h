#pragma once

#include <cstdint>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/ini_text.h"

namespace tarvok::store {

/**
 * Changes to an INI file that are written at once. Reads see the changes made so far.
 *
 * A replaced key keeps its place; a new key goes after the last key of its section, a new section at the end.
 * All other lines stay byte for byte. The base must outlive the edit.
 *
 * A load changes thousands of keys at once, so names, values and bookkeeping are allocated one after another
 * in a few growing blocks owned by the edit instead of one by one.
 */
class IniEdit {
 public:
  explicit IniEdit(const IniText& base) : base_(base) {}
  IniEdit(const IniEdit&) = delete;
  IniEdit& operator=(const IniEdit&) = delete;

  /** Like IniText::Get. */
  std::string Get(std::string_view section, std::string_view key) const {
    return std::string(View(section, key));
  }
  /** Like Get, but without a copy. The view stays valid, with the same text, as long as the edit lives. */
  std::string_view View(std::string_view section, std::string_view key) const;
  /** Writes key=value; "" writes an empty key. The value is cut at its first NUL, CR or LF. */
  void Set(std::string_view section, std::string_view key, std::string_view value);
  void DeleteKey(std::string_view section, std::string_view key);
  /** Deletes every section of that name with all its lines. */
  void DeleteSection(std::string_view section);

  /** The text that the changes apply to. */
  const IniText& base() const { return base_; }
  bool changed() const { return changed_; }
  /**
   * Reports each value set that a reader would cut: "The value of section key is longer than 1999
   * characters".
   */
  std::vector<std::string> TooLong() const;
  /** The bytes of the file with all changes applied. */
  std::string Bytes() const;

 private:
  template <typename Value>
  using ByName = std::pmr::unordered_map<std::string_view, Value, NameHash, NameEqual>;

  struct KeyEdit {
    std::string_view name;
    std::string_view value;
    bool is_new = false;  // the base has no such key
    bool deleted = false;
  };
  struct SectionEdit {
    SectionEdit(std::string_view section, std::int32_t base_index, std::pmr::memory_resource* memory)
        : name(section), in_base(base_index), keys(memory), order(memory) {}

    std::string_view name;
    std::int32_t in_base;  // index of the base's section, -1 if there is none or it was deleted
    bool deleted = false;  // the base's sections of this name are gone; new keys may make a new one
    ByName<KeyEdit> keys;
    std::pmr::vector<const KeyEdit*> order;  // in order of their first change
  };

  std::string_view Keep(std::string_view text);
  SectionEdit& EditOf(std::string_view section);
  const SectionEdit* FindEdit(std::string_view section) const;
  KeyEdit& ChangeOf(SectionEdit& edit, std::string_view key);
  static void AppendNewKeys(const SectionEdit& edit, std::string_view line_end, std::string& out);
  void AppendSection(std::int32_t section, std::string_view line_end, std::string& out) const;
  void AppendLine(const IniText::Line& line, const SectionEdit& edit, std::string& out) const;

  const IniText& base_;
  bool changed_ = false;
  std::pmr::monotonic_buffer_resource memory_;  // for everything below
  ByName<SectionEdit> sections_{&memory_};
  std::pmr::vector<const SectionEdit*> order_{&memory_};  // in order of their first change
};

}  // namespace tarvok::store
