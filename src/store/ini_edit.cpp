#include "store/ini_edit.h"

#include <algorithm>

namespace tarvok {
namespace {

constexpr std::string_view kNewLine = "\r\n";

std::string_view LineEndOf(std::string_view line) {
  if (line.ends_with("\r\n")) return "\r\n";
  if (line.ends_with("\n")) return "\n";
  return {};
}

/** The line end that the file uses, by its first line; CR LF in a file without any. */
std::string_view LineEndOf(const IniText& text) {
  if (text.lines().empty()) return kNewLine;
  const std::string_view end = LineEndOf(text.lines().front().text);
  return end.empty() ? kNewLine : end;
}

/** Ends a last line that has no line end yet; one that ends in a bare CR must not get a second. */
void EndLastLine(std::string_view line_end, std::string& out) {
  if (out.empty() || out.back() == '\n') return;
  out.append(out.back() == '\r' ? std::string_view("\n") : line_end);
}

std::string CutValue(std::string_view value) {
  return std::string(value.substr(0, value.find_first_of(std::string_view("\0\r\n", 3))));
}

void AppendKey(std::string_view name, std::string_view value, std::string_view line_end, std::string& out) {
  out.append(name).append("=").append(value).append(line_end);
}

}  // namespace

IniEdit::SectionEdit& IniEdit::EditOf(std::string_view section) {
  std::string folded = FoldName(section);
  const auto [found, is_new] = sections_.try_emplace(folded);
  if (is_new) {
    found->second.name = section;
    section_order_.push_back(std::move(folded));
  }
  return found->second;
}

const IniEdit::SectionEdit* IniEdit::FindEdit(std::string_view section) const {
  if (sections_.empty()) return nullptr;
  const auto found = sections_.find(FoldName(section));
  return found == sections_.end() ? nullptr : &found->second;
}

std::string IniEdit::Get(std::string_view section, std::string_view key) const {
  const SectionEdit* edit = FindEdit(section);
  if (edit != nullptr) {
    if (const auto found = edit->keys.find(FoldName(key)); found != edit->keys.end()) {
      return found->second.deleted ? std::string() : found->second.value.substr(0, kMaxIniValue);
    }
    if (edit->deleted) return {};
  }
  return std::string(base_.Get(section, key));
}

void IniEdit::Set(std::string_view section, std::string_view key, std::string_view value) {
  SectionEdit& edit = EditOf(section);
  const bool in_base = !edit.deleted && base_.HasKey(section, key);
  const auto [change, first_time] = edit.keys.try_emplace(FoldName(key));
  if (first_time && !in_base) edit.new_keys.push_back(&change->second);
  change->second = {false, std::string(key), CutValue(value)};
  changed_ = true;
}

std::string IniEdit::TooLong() const {
  for (const std::string& section : section_order_) {
    const SectionEdit& edit = sections_.at(section);
    for (const auto& [folded, change] : edit.keys) {
      if (!change.deleted && change.value.size() > kMaxIniValue) return edit.name + " " + change.name;
    }
  }
  return {};
}

void IniEdit::DeleteKey(std::string_view section, std::string_view key) {
  const SectionEdit* known = FindEdit(section);
  const std::string folded = FoldName(key);
  const bool in_base = base_.HasKey(section, key) && (known == nullptr || !known->deleted);
  if (!in_base && (known == nullptr || !known->keys.contains(folded))) return;
  KeyEdit& change = EditOf(section).keys[folded];
  change = {true, std::string(key), {}};
  changed_ = true;
}

void IniEdit::DeleteSection(std::string_view section) {
  if (!base_.HasSection(section) && FindEdit(section) == nullptr) return;
  SectionEdit& edit = EditOf(section);
  edit.deleted = true;
  edit.keys.clear();
  edit.new_keys.clear();
  changed_ = true;
}

void IniEdit::AppendNewKeys(const SectionEdit& edit, std::string_view line_end, std::string& out) const {
  for (const KeyEdit* key : edit.new_keys) {
    if (key->deleted) continue;
    EndLastLine(line_end, out);
    AppendKey(key->name, key->value, line_end, out);
  }
}

void IniEdit::AppendLine(const IniText::Line& line, const SectionEdit* edit, std::string& out) const {
  if (edit == nullptr || line.key < 0) {
    out.append(line.text);
    return;
  }
  const IniText::Key& key = base_.key(line.key);
  const auto found = edit->keys.find(FoldName(key.name));
  if (found == edit->keys.end()) {
    out.append(line.text);
  } else if (!found->second.deleted) {
    // Only the first key of a name is read, so only that one changes; a value that reads the same stays as it
    // stands.
    const bool is_first = base_.FindKey(line.section, key.name) == line.key;
    if (!is_first || key.value == found->second.value) {
      out.append(line.text);
    } else {
      AppendKey(key.name, found->second.value, LineEndOf(line.text), out);
    }
  }
}

std::vector<const IniEdit::SectionEdit*> IniEdit::EditOfEachSection() const {
  std::vector<const SectionEdit*> edits;
  for (const IniText::Line& line : base_.lines()) {
    if (line.header) edits.push_back(FindEdit(base_.section_name(line.section)));
  }
  return edits;
}

std::string IniEdit::Bytes() const {
  const std::string_view line_end = LineEndOf(base_);
  const std::vector<IniText::Line>& lines = base_.lines();
  const std::vector<const SectionEdit*> edits = EditOfEachSection();
  std::vector<std::size_t> last_key_line(edits.size(), 0);  // or the header, where a section has no key
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].header || lines[i].key >= 0) last_key_line[static_cast<std::size_t>(lines[i].section)] = i;
  }

  std::string out;
  out.reserve(base_.bytes().size() + 1024);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const IniText::Line& line = lines[i];
    const auto section = static_cast<std::size_t>(line.section);
    const SectionEdit* edit = line.section < 0 ? nullptr : edits[section];
    if (edit != nullptr && edit->deleted) continue;
    const bool visible = edit != nullptr && base_.FindSection(edit->name) == line.section;
    AppendLine(line, visible ? edit : nullptr, out);
    if (visible && last_key_line[section] == i) AppendNewKeys(*edit, line_end, out);
  }
  for (const std::string& folded : section_order_) {
    const SectionEdit& edit = sections_.at(folded);
    if (!edit.deleted && base_.HasSection(edit.name)) continue;
    const bool has_keys = std::any_of(edit.new_keys.begin(), edit.new_keys.end(),
                                      [](const KeyEdit* key) { return !key->deleted; });
    if (!has_keys) continue;
    EndLastLine(line_end, out);
    out.append("[").append(edit.name).append("]").append(line_end);
    AppendNewKeys(edit, line_end, out);
  }
  return out;
}

}  // namespace tarvok
