#include "store/ini_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
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

std::string_view WithoutLineEnd(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
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
  const std::string_view all = bytes_;
  // A header is a line that begins with a bracket. Brackets are rare, so this looks for them, not for lines.
  std::size_t begin = std::string_view::npos;
  const auto add_section = [&](std::size_t end) {
    if (begin == std::string_view::npos) return;
    const std::string_view text = all.substr(begin, end - begin);
    // A header without its closing bracket still begins a section, so that its keys do not fall into the one
    // before.
    std::string_view name = TrimBlanks(WithoutLineEnd(text.substr(0, text.find('\n'))));
    name.remove_prefix(1);
    name = TrimBlanks(name.substr(0, name.find(']')));
    first_of_name_.emplace(name, section_count());
    sections_.emplace_back(name, text);
  };
  for (std::size_t at = all.find('['); at != std::string_view::npos; at = all.find('[', at + 1)) {
    std::size_t line = at;
    while (line > 0 && IsBlank(all[line - 1])) --line;
    if (line > 0 && all[line - 1] != '\n') continue;
    add_section(line);
    begin = line;
  }
  add_section(all.size());
}

IniText::~IniText() {
  for (const Section& section : sections_) delete section.contents.load(std::memory_order_relaxed);
}

std::string_view IniText::head() const {
  const std::string_view all = bytes_;
  return sections_.empty()
             ? all
             : all.substr(0, static_cast<std::size_t>(sections_.front().text.data() - all.data()));
}

IniText::Contents::Contents(std::string_view text) {
  const auto count = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  lines.reserve(count);
  keys.reserve(count);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t newline = text.find('\n', at);
    const std::size_t end = newline == std::string_view::npos ? text.size() : newline + 1;
    Line line{text.substr(at, end - at)};
    const std::string_view shown = TrimBlanks(WithoutLineEnd(line.text));
    const std::size_t equals = shown.find('=');
    if (at > 0 && equals != std::string_view::npos && shown.front() != ';') {
      line.key = static_cast<std::int32_t>(keys.size());
      last_key_line = lines.size();
      keys.push_back({TrimBlanks(shown.substr(0, equals)), ValueAsRead(shown.substr(equals + 1))});
    }
    lines.push_back(line);
    at = end;
  }
  slots.assign(std::bit_ceil(2 * keys.size() + 1), -1);
  for (std::size_t key = 0; key < keys.size(); ++key) {
    std::int32_t& slot = slots[SlotOf(keys[key].name)];
    if (slot < 0) slot = static_cast<std::int32_t>(key);  // the first key of a name counts
  }
}

std::size_t IniText::Contents::SlotOf(std::string_view key) const {
  const std::size_t mask = slots.size() - 1;
  std::size_t at = NameHash()(key) & mask;
  while (slots[at] >= 0 && !SameName(keys[static_cast<std::size_t>(slots[at])].name, key))
    at = (at + 1) & mask;
  return at;
}

const IniText::Contents& IniText::Read(std::int32_t section) const {
  const Section& one = At(section);
  const Contents* contents = one.contents.load(std::memory_order_acquire);
  if (contents != nullptr) return *contents;
  auto read = std::make_unique<const Contents>(one.text);
  // Another thread may have been faster; then its result is used.
  if (one.contents.compare_exchange_strong(contents, read.get(), std::memory_order_acq_rel))
    contents = read.release();
  return *contents;
}

std::int32_t IniText::FindSection(std::string_view section) const {
  const auto found = first_of_name_.find(section);
  return found == first_of_name_.end() ? -1 : found->second;
}

std::int32_t IniText::FindKey(std::int32_t section, std::string_view key) const {
  if (section < 0) return -1;
  const Contents& contents = Read(section);
  return contents.slots[contents.SlotOf(key)];
}

std::string_view IniText::Get(std::string_view section, std::string_view key) const {
  const std::int32_t index = FindSection(section);
  const std::int32_t found = FindKey(index, key);
  return found < 0 ? std::string_view() : this->key(index, found).value;
}

bool IniText::HasKey(std::string_view section, std::string_view key) const {
  return FindKey(FindSection(section), key) >= 0;
}

std::vector<IniText::Key> IniText::Keys(std::string_view section) const {
  std::vector<Key> found;
  const std::int32_t index = FindSection(section);
  if (index < 0) return found;
  const std::vector<Key>& keys = Read(index).keys;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (FindKey(index, keys[i].name) == static_cast<std::int32_t>(i)) found.push_back(keys[i]);
  }
  return found;
}

std::vector<std::string_view> IniText::Sections() const {
  std::vector<std::string_view> names;
  for (std::int32_t i = 0; i < section_count(); ++i) {
    if (FindSection(section_name(i)) == i) names.push_back(section_name(i));
  }
  return names;
}

}  // namespace tarvok::store
