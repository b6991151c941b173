#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvok::store {

/** Compares two names, ignoring the case of Latin-1 letters. */
bool SameName(std::string_view a, std::string_view b);
/** Folds the case of a name: names that are the same have the same folded form. */
std::string FoldName(std::string_view name);

/** Hash and equality for containers of names, ignoring case. */
struct NameHash {
  std::size_t operator()(std::string_view name) const;
};
struct NameEqual {
  bool operator()(std::string_view a, std::string_view b) const { return SameName(a, b); }
};

/** Get returns at most this many bytes of a value; the rest is cut. */
inline constexpr std::size_t kMaxIniValue = 1999;

/**
 * The bytes of an INI file with an index over them.
 *
 * Of several sections or keys with the same name, the first one counts. Blanks and tabs around names and
 * values are dropped, then one pair of matching quotes around a value. A line that starts with ";" is a
 * comment; a line without "=" is skipped. Lines end with LF or CR LF. No input is an error: garbage simply
 * has no keys. Views stay valid as long as the object lives.
 */
class IniText {
 public:
  struct Key {
    std::string_view name;
    std::string_view value;  // trimmed and unquoted, as Get returns it
  };

  /** A line of the file, including its line end. Each header begins the next section. */
  struct Line {
    std::string_view text;
    std::int32_t key = -1;  // index into the keys; -1 if the line is not a key
    bool header = false;
  };

  explicit IniText(std::string bytes = {});
  IniText(const IniText&) = delete;
  IniText& operator=(const IniText&) = delete;

  /** The value, at most kMaxIniValue bytes and cut at its first NUL; "" if the section or key is missing. */
  std::string_view Get(std::string_view section, std::string_view key) const;
  bool HasKey(std::string_view section, std::string_view key) const;
  bool HasSection(std::string_view section) const { return FindSection(section) >= 0; }
  /** The keys of the first section of that name, in file order, each name once. */
  std::vector<Key> Keys(std::string_view section) const;
  /** The names of all sections in file order, each as spelled at its first occurrence. */
  std::vector<std::string_view> Sections() const;

  const std::string& bytes() const { return bytes_; }
  const std::vector<Line>& lines() const { return lines_; }
  /** Index of the first section of that name, -1 if there is none. */
  std::int32_t FindSection(std::string_view section) const;
  /** Index of the first key of that name in a section, -1 if there is none. */
  std::int32_t FindKey(std::int32_t section, std::string_view key) const;
  const Key& key(std::int32_t index) const { return keys_[static_cast<std::size_t>(index)]; }
  std::string_view section_name(std::int32_t index) const {
    return sections_[static_cast<std::size_t>(index)].name;
  }
  /** Index of a section's last line with a key, or of its header if it has no keys. */
  std::size_t last_key_line(std::int32_t section) const {
    return sections_[static_cast<std::size_t>(section)].last_key_line;
  }

 private:
  /**
   * A header and the keys after it, up to the next header. The keys of a section are contiguous, and so are
   * its slots: reading through one section touches little memory, however large the file is.
   */
  struct Section {
    std::string_view name;
    std::size_t last_key_line = 0;
    std::size_t first_key = 0;
    std::size_t first_slot = 0;
    std::size_t slots = 0;  // a power of two, greater than the number of keys
  };

  void Parse();
  void AddHeader(std::string_view text, Line& line);
  void AddKey(std::string_view text, std::size_t equals, Line& line);
  void IndexLastSection();
  std::size_t SlotOf(const Section& section, std::string_view key) const;

  std::string bytes_;
  std::vector<Line> lines_;
  std::vector<Section> sections_;
  std::unordered_map<std::string_view, std::int32_t, NameHash, NameEqual> first_of_name_;
  std::vector<Key> keys_;
  std::vector<std::int32_t> slots_;  // of each section in turn: open addressing over its keys, -1 if free
};

}  // namespace tarvok::store
