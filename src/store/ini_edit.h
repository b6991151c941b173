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
 * Changes to an INI file that become one write. Reads see the changes made so far.
 *
 * A replaced key keeps its place, a new key goes behind the last key of its section, a new section to the
 * end. All other lines stay byte for byte. The base must live as long as the edit.
 *
 * A load changes some thousand keys at once: their names, values and bookkeeping lie one behind the other in a
 * few growing blocks that go with the edit, so that a changed key asks for no memory of its own.
 */
class IniEdit {
 public:
  explicit IniEdit(const IniText& base) : base_(base) {}
  IniEdit(const IniEdit&) = delete;
  IniEdit& operator=(const IniEdit&) = delete;

  /** As IniText::Get. */
  std::string Get(std::string_view section, std::string_view key) const {
    return std::string(View(section, key));
  }
  /** The same without a copy. What it shows stays as it is, changed or not, as long as the edit lives. */
  std::string_view View(std::string_view section, std::string_view key) const;
  /** Writes key=value; "" makes an empty key. The value is cut at its first NUL, CR or LF. */
  void Set(std::string_view section, std::string_view key, std::string_view value);
  void DeleteKey(std::string_view section, std::string_view key);
  /** Deletes every section of that name, the lines in it included. */
  void DeleteSection(std::string_view section);

  /** What the changes are made to. */
  const IniText& base() const { return base_; }
  bool changed() const { return changed_; }
  /** The values set that a reader would cut, each as "The value of section key is longer than 1999 characters". */
  std::vector<std::string> TooLong() const;
  /** The bytes of the file with all changes in it. */
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
    std::pmr::vector<const KeyEdit*> order;  // of their first change
  };

  std::string_view Keep(std::string_view text);
  SectionEdit& EditOf(std::string_view section);
  const SectionEdit* FindEdit(std::string_view section) const;
  KeyEdit& ChangeOf(SectionEdit& edit, std::string_view key);
  static void AppendNewKeys(const SectionEdit& edit, std::string_view line_end, std::string& out);
  void AppendLine(const IniText::Line& line, const SectionEdit* edit, std::string& out) const;

  const IniText& base_;
  bool changed_ = false;
  std::pmr::monotonic_buffer_resource memory_;  // of all below
  ByName<SectionEdit> sections_{&memory_};
  std::pmr::vector<const SectionEdit*> order_{&memory_};  // of their first change
};

}  // namespace tarvok::store
