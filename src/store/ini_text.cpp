#include "store/ini_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace tarvok::store {
namespace {

constexpr std::array<char, 256> MakeFoldTable() {
  std::array<char, 256> table{};
  for (int i = 0; i < 256; ++i) {
    const bool upper = (i >= 'A' && i <= 'Z') || (i >= 0xC0 && i <= 0xDE && i != 0xD7);
    table[static_cast<std::size_t>(i)] = static_cast<char>(upper ? i + 0x20 : i);
  }
  return table;
}

constexpr std::array<char, 256> kFold = MakeFoldTable();

char Fold(char c) {
  return kFold[static_cast<unsigned char>(c)];
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view ValueAsRead(std::string_view raw) {
  std::string_view value = TrimBlanks(raw);
  if (value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'')) {
    value = value.substr(1, value.size() - 2);
  }
  value = value.substr(0, kMaxIniValue);
  return value.substr(0, value.find('\0'));
}

}  // namespace

bool SameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Fold(a[i]) != Fold(b[i])) return false;
  }
  return true;
}

std::string FoldName(std::string_view name) {
  std::string folded(name);
  for (char& c : folded) c = Fold(c);
  return folded;
}

std::size_t NameHash::operator()(std::string_view name) const {
  std::uint64_t hash = 14695981039346656037ULL;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(Fold(c))) * 1099511628211ULL;
  return hash ^ (hash >> 29);
}

IniText::IniText(std::string bytes) : bytes_(std::move(bytes)) {
  Parse();
}

void IniText::Parse() {
  const std::string_view all = bytes_;
  lines_.reserve(static_cast<std::size_t>(std::count(all.begin(), all.end(), '\n')) + 1);
  keys_.reserve(lines_.capacity());
  std::size_t at = 0;
  while (at < all.size()) {
    const std::size_t newline = all.find('\n', at);
    const std::size_t end = newline == std::string_view::npos ? all.size() : newline + 1;
    Line line;
    line.text = all.substr(at, end - at);
    std::string_view text = line.text;
    if (!text.empty() && text.back() == '\n') text.remove_suffix(1);
    if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
    text = TrimBlanks(text);
    if (!text.empty() && text.front() == '[') {
      AddHeader(text, line);
    } else if (!text.empty() && text.front() != ';' && !sections_.empty()) {
      if (const std::size_t equals = text.find('='); equals != std::string_view::npos)
        AddKey(text, equals, line);
    }
    lines_.push_back(line);
    at = end;
  }
  IndexLastSection();
}

void IniText::AddHeader(std::string_view text, Line& line) {
  IndexLastSection();
  line.header = true;
  // A header without its closing bracket still begins a section, so that its keys do not fall into the one
  // before.
  text.remove_prefix(1);
  const std::string_view name = TrimBlanks(text.substr(0, text.find(']')));
  sections_.push_back({.name = name, .last_key_line = lines_.size(), .first_key = keys_.size()});
  first_of_name_.emplace(name, static_cast<std::int32_t>(sections_.size()) - 1);
}

void IniText::AddKey(std::string_view text, std::size_t equals, Line& line) {
  line.key = static_cast<std::int32_t>(keys_.size());
  sections_.back().last_key_line = lines_.size();
  keys_.push_back({TrimBlanks(text.substr(0, equals)), ValueAsRead(text.substr(equals + 1))});
}

void IniText::IndexLastSection() {
  if (sections_.empty()) return;
  Section& section = sections_.back();
  section.first_slot = slots_.size();
  section.slots = std::bit_ceil(2 * (keys_.size() - section.first_key) + 1);
  slots_.resize(slots_.size() + section.slots, -1);
  for (std::size_t key = section.first_key; key < keys_.size(); ++key) {
    std::int32_t& slot = slots_[SlotOf(section, keys_[key].name)];
    if (slot < 0) slot = static_cast<std::int32_t>(key);  // the first key of a name counts
  }
}

std::size_t IniText::SlotOf(const Section& section, std::string_view key) const {
  const std::size_t mask = section.slots - 1;
  std::size_t at = NameHash()(key) & mask;
  for (;; at = (at + 1) & mask) {
    const std::int32_t there = slots_[section.first_slot + at];
    if (there < 0 || SameName(this->key(there).name, key)) return section.first_slot + at;
  }
}

std::int32_t IniText::FindSection(std::string_view section) const {
  const auto found = first_of_name_.find(section);
  return found == first_of_name_.end() ? -1 : found->second;
}

std::int32_t IniText::FindKey(std::int32_t section, std::string_view key) const {
  return section < 0 ? -1 : slots_[SlotOf(sections_[static_cast<std::size_t>(section)], key)];
}

std::string_view IniText::Get(std::string_view section, std::string_view key) const {
  const std::int32_t found = FindKey(FindSection(section), key);
  return found < 0 ? std::string_view() : this->key(found).value;
}

bool IniText::HasKey(std::string_view section, std::string_view key) const {
  return FindKey(FindSection(section), key) >= 0;
}

std::vector<IniText::Key> IniText::Keys(std::string_view section) const {
  std::vector<Key> found;
  const std::int32_t index = FindSection(section);
  if (index < 0) return found;
  const auto next = static_cast<std::size_t>(index) + 1;
  const std::size_t end = next < sections_.size() ? sections_[next].first_key : keys_.size();
  for (std::size_t i = sections_[next - 1].first_key; i < end; ++i) {
    if (FindKey(index, keys_[i].name) == static_cast<std::int32_t>(i)) found.push_back(keys_[i]);
  }
  return found;
}

std::vector<std::string_view> IniText::Sections() const {
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    if (FindSection(sections_[i].name) == static_cast<std::int32_t>(i)) names.push_back(sections_[i].name);
  }
  return names;
}

}  // namespace tarvok::store
