#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
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
 *
 * The sections are found at once, but the lines of each are read only when they are first asked for: most
 * programs need a few keys of a large file. Several threads may read one object.
 */
class IniText {
 public:
  struct Key {
    std::string_view name;
    std::string_view value;  // trimmed and unquoted, as Get returns it
  };

  /** A line of a section, including its line end. */
  struct Line {
    std::string_view text;
    std::int32_t key = -1;  // index into the section's keys; -1 if the line is not a key
  };

  explicit IniText(std::string bytes = {});
  ~IniText();
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
  /** The bytes before the first section. */
  std::string_view head() const;

  // Each header begins a section; sections are numbered from 0. A number must be valid.
  std::int32_t section_count() const { return static_cast<std::int32_t>(sections_.size()); }
  /** Number of the first section of that name, -1 if there is none. */
  std::int32_t FindSection(std::string_view section) const;
  std::string_view section_name(std::int32_t section) const { return At(section).name; }
  /** The bytes of a section with its header. */
  std::string_view section_text(std::int32_t section) const { return At(section).text; }
  /** The lines of a section; the first one is its header. */
  const std::vector<Line>& lines(std::int32_t section) const { return Read(section).lines; }
  /** Index of a section's last line with a key; 0, its header, if it has no keys. */
  std::size_t last_key_line(std::int32_t section) const { return Read(section).last_key_line; }
  const Key& key(std::int32_t section, std::int32_t index) const {
    return Read(section).keys[static_cast<std::size_t>(index)];
  }
  /** Index of the first key of that name; -1 if there is none, or if the section is -1. */
  std::int32_t FindKey(std::int32_t section, std::string_view key) const;

 private:
  /** What is known of a section once its lines have been read. */
  struct Contents {
    explicit Contents(std::string_view text);
    std::size_t SlotOf(std::string_view key) const;

    std::vector<Line> lines;
    std::vector<Key> keys;
    std::vector<std::int32_t> slots;  // open addressing over the keys, -1 if free; a power of two
    std::size_t last_key_line = 0;
  };
  struct Section {
    Section(std::string_view section_name, std::string_view section_text)
        : name(section_name), text(section_text) {}

    std::string_view name;
    std::string_view text;
    mutable std::atomic<const Contents*> contents = nullptr;  // owned
  };

  const Section& At(std::int32_t section) const { return sections_[static_cast<std::size_t>(section)]; }
  const Contents& Read(std::int32_t section) const;

  std::string bytes_;
  std::deque<Section> sections_;
  std::unordered_map<std::string_view, std::int32_t, NameHash, NameEqual> first_of_name_;
};

}  // namespace tarvok::store
