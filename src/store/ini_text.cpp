#include "store/ini_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvok {
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

std::uint64_t HashName(std::uint64_t seed, std::string_view name) {
  std::uint64_t hash = 14695981039346656037ULL ^ (seed * 0x9E3779B97F4A7C15ULL);
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(Fold(c))) * 1099511628211ULL;
  return hash ^ (hash >> 29);
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

std::size_t IniText::NameHash::operator()(std::string_view name) const {
  return HashName(0, name);
}

IniText::IniText(std::string bytes) : bytes_(std::move(bytes)) {
  Parse();
}

void IniText::Parse() {
  slots_.assign(64, -1);
  const std::string_view all = bytes_;
  std::size_t at = 0;
  while (at < all.size()) {
    const std::size_t newline = all.find('\n', at);
    const std::size_t end = newline == std::string_view::npos ? all.size() : newline + 1;
    Line line;
    line.text = all.substr(at, end - at);
    line.section = static_cast<std::int32_t>(sections_.size()) - 1;
    std::string_view text = line.text;
    if (!text.empty() && text.back() == '\n') text.remove_suffix(1);
    if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
    text = TrimBlanks(text);
    if (!text.empty() && text.front() == '[') {
      AddHeader(text, line);
    } else if (!text.empty() && text.front() != ';' && line.section >= 0) {
      if (const std::size_t equals = text.find('='); equals != std::string_view::npos)
        AddKey(text, equals, line);
    }
    lines_.push_back(line);
    at = end;
  }
}

void IniText::AddHeader(std::string_view text, Line& line) {
  line.header = true;
  line.section = static_cast<std::int32_t>(sections_.size());
  // A header that lost its bracket still begins a section: its keys must not fall to the section before.
  text.remove_prefix(1);
  sections_.push_back(TrimBlanks(text.substr(0, text.find(']'))));
  first_of_name_.emplace(sections_.back(), line.section);
}

void IniText::AddKey(std::string_view text, std::size_t equals, Line& line) {
  line.key = static_cast<std::int32_t>(keys_.size());
  keys_.push_back({{TrimBlanks(text.substr(0, equals)), ValueAsRead(text.substr(equals + 1))}, line.section});
  const std::size_t slot = SlotOf(line.section, keys_.back().key.name);
  if (slots_[slot] >= 0) return;  // the first key of a name counts
  slots_[slot] = line.key;
  if (++used_slots_ * 2 > slots_.size()) GrowSlots();
}

void IniText::GrowSlots() {
  std::vector<std::int32_t> old = std::exchange(slots_, std::vector<std::int32_t>(slots_.size() * 4, -1));
  for (const std::int32_t key : old) {
    if (key >= 0) {
      const StoredKey& stored = keys_[static_cast<std::size_t>(key)];
      slots_[SlotOf(stored.section, stored.key.name)] = key;
    }
  }
}

std::size_t IniText::SlotOf(std::int32_t section, std::string_view key) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = HashName(static_cast<std::uint64_t>(section) + 1, key) & mask;
  while (slots_[slot] >= 0) {
    const StoredKey& stored = keys_[static_cast<std::size_t>(slots_[slot])];
    if (stored.section == section && SameName(stored.key.name, key)) break;
    slot = (slot + 1) & mask;
  }
  return slot;
}

std::int32_t IniText::FindSection(std::string_view section) const {
  const auto found = first_of_name_.find(section);
  return found == first_of_name_.end() ? -1 : found->second;
}

std::int32_t IniText::FindKey(std::int32_t section, std::string_view key) const {
  return section < 0 ? -1 : slots_[SlotOf(section, key)];
}

std::string_view IniText::Get(std::string_view section, std::string_view key) const {
  const std::int32_t found = FindKey(FindSection(section), key);
  return found < 0 ? std::string_view() : keys_[static_cast<std::size_t>(found)].key.value;
}

bool IniText::HasKey(std::string_view section, std::string_view key) const {
  return FindKey(FindSection(section), key) >= 0;
}

std::vector<IniText::Key> IniText::Keys(std::string_view section) const {
  std::vector<Key> found;
  const std::int32_t index = FindSection(section);
  if (index < 0) return found;
  // Each header begins a section of its own, so the keys of one lie side by side.
  const auto first =
      std::lower_bound(keys_.begin(), keys_.end(), index,
                       [](const StoredKey& key, std::int32_t wanted) { return key.section < wanted; });
  for (auto i = first; i != keys_.end() && i->section == index; ++i) {
    if (slots_[SlotOf(index, i->key.name)] == i - keys_.begin()) found.push_back(i->key);
  }
  return found;
}

std::vector<std::string_view> IniText::Sections() const {
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    if (FindSection(sections_[i]) == static_cast<std::int32_t>(i)) names.push_back(sections_[i]);
  }
  return names;
}

}  // namespace tarvok
