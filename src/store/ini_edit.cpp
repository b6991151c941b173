#include "store/ini_edit.h"

#include <algorithm>

namespace tarvok::store {
namespace {

constexpr std::string_view kNewLine = "\r\n";

std::string_view LineEndOf(std::string_view line) {
  if (line.ends_with("\r\n")) return "\r\n";
  if (line.ends_with("\n")) return "\n";
  return {};
}

/** The line end of the file's first line; CR LF for a file without any. */
std::string_view LineEndOf(const IniText& text) {
  const std::string_view all = text.bytes();
  const std::string_view end = LineEndOf(all.substr(0, all.find('\n') + 1));
  return end.empty() ? kNewLine : end;
}

/** Ends a last line that has no line end yet. A line that ends in a bare CR must not get a second one. */
void EndLastLine(std::string_view line_end, std::string& out) {
  if (out.empty() || out.back() == '\n') return;
  out.append(out.back() == '\r' ? std::string_view("\n") : line_end);
}

std::string_view CutValue(std::string_view value) {
  return {value.begin(), std::find_if(value.begin(), value.end(),
                                      [](char c) { return c == '\0' || c == '\r' || c == '\n'; })};
}

void AppendKey(std::string_view name, std::string_view value, std::string_view line_end, std::string& out) {
  out.append(name).append("=").append(value).append(line_end);
}

}  // namespace

std::string_view IniEdit::Keep(std::string_view text) {
  if (text.empty()) return {};
  auto* kept = static_cast<char*>(memory_.allocate(text.size(), 1));
  std::copy(text.begin(), text.end(), kept);
  return {kept, text.size()};
}

IniEdit::SectionEdit& IniEdit::EditOf(std::string_view section) {
  if (const auto found = sections_.find(section); found != sections_.end()) return found->second;
  const std::string_view name = Keep(section);
  SectionEdit& edit = sections_.try_emplace(name, name, base_.FindSection(name), &memory_).first->second;
  order_.push_back(&edit);
  return edit;
}

const IniEdit::SectionEdit* IniEdit::FindEdit(std::string_view section) const {
  const auto found = sections_.find(section);
  return found == sections_.end() ? nullptr : &found->second;
}

IniEdit::KeyEdit& IniEdit::ChangeOf(SectionEdit& edit, std::string_view key) {
  changed_ = true;
  if (const auto found = edit.keys.find(key); found != edit.keys.end()) return found->second;
  const std::string_view name = Keep(key);
  KeyEdit& change = edit.keys[name];
  change.name = name;
  change.is_new = base_.FindKey(edit.in_base, key) < 0;
  edit.order.push_back(&change);
  return change;
}

std::string_view IniEdit::View(std::string_view section, std::string_view key) const {
  const SectionEdit* edit = FindEdit(section);
  if (edit == nullptr) return base_.Get(section, key);
  if (const auto found = edit->keys.find(key); found != edit->keys.end())
    return found->second.value.substr(0, kMaxIniValue);
  const std::int32_t kept = base_.FindKey(edit->in_base, key);
  return kept < 0 ? std::string_view() : base_.key(edit->in_base, kept).value;
}

void IniEdit::Set(std::string_view section, std::string_view key, std::string_view value) {
  KeyEdit& change = ChangeOf(EditOf(section), key);
  if (change.name != key) change.name = Keep(key);  // last set with a different spelling
  change.value = Keep(CutValue(value));
  change.deleted = false;
}

std::vector<std::string> IniEdit::TooLong() const {
  std::vector<std::string> all;
  for (const SectionEdit* edit : order_) {
    for (const KeyEdit* key : edit->order) {
      if (key->value.size() <= kMaxIniValue) continue;
      std::string message("The value of ");
      message.append(edit->name).append(" ").append(key->name);
      all.push_back(message + " is longer than " + std::to_string(kMaxIniValue) + " characters");
    }
  }
  return all;
}

void IniEdit::DeleteKey(std::string_view section, std::string_view key) {
  const SectionEdit* known = FindEdit(section);
  const std::int32_t in_base = known == nullptr ? base_.FindSection(section) : known->in_base;
  if (base_.FindKey(in_base, key) < 0 && (known == nullptr || !known->keys.contains(key))) return;
  KeyEdit& change = ChangeOf(EditOf(section), key);
  change.value = {};
  change.deleted = true;
}

void IniEdit::DeleteSection(std::string_view section) {
  if (!base_.HasSection(section) && FindEdit(section) == nullptr) return;
  SectionEdit& edit = EditOf(section);
  edit.in_base = -1;
  edit.deleted = true;
  edit.keys.clear();
  edit.order.clear();
  changed_ = true;
}

void IniEdit::AppendNewKeys(const SectionEdit& edit, std::string_view line_end, std::string& out) {
  for (const KeyEdit* key : edit.order) {
    if (!key->is_new || key->deleted) continue;
    EndLastLine(line_end, out);
    AppendKey(key->name, key->value, line_end, out);
  }
}

void IniEdit::AppendLine(const IniText::Line& line, const SectionEdit& edit, std::string& out) const {
  if (line.key < 0) {
    out.append(line.text);
    return;
  }
  const IniText::Key& key = base_.key(edit.in_base, line.key);
  const auto found = edit.keys.find(key.name);
  if (found == edit.keys.end()) {
    out.append(line.text);
  } else if (!found->second.deleted) {
    // Only the first key of a name is read, so only that one changes. A value that reads the same stays as it
    // is.
    const bool is_first = base_.FindKey(edit.in_base, key.name) == line.key;
    if (!is_first || key.value == found->second.value) {
      out.append(line.text);
    } else {
      AppendKey(key.name, found->second.value, LineEndOf(line.text), out);
    }
  }
}

void IniEdit::AppendSection(std::int32_t section, std::string_view line_end, std::string& out) const {
  const SectionEdit* edit = FindEdit(base_.section_name(section));
  // Only the first section of a name is read, so only that one changes; a deletion applies to all.
  if (edit != nullptr && edit->deleted) return;
  if (edit == nullptr || edit->in_base != section) {
    out.append(base_.section_text(section));
    return;
  }
  const std::vector<IniText::Line>& lines = base_.lines(section);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    AppendLine(lines[i], *edit, out);
    if (base_.last_key_line(section) == i) AppendNewKeys(*edit, line_end, out);
  }
}

std::string IniEdit::Bytes() const {
  const std::string_view line_end = LineEndOf(base_);
  std::string out;
  out.reserve(base_.bytes().size() + 1024);
  out.append(base_.head());
  for (std::int32_t section = 0; section < base_.section_count(); ++section)
    AppendSection(section, line_end, out);
  for (const SectionEdit* made : order_) {
    const bool has_keys =
        std::any_of(made->order.begin(), made->order.end(), [](const KeyEdit* key) { return !key->deleted; });
    if (made->in_base >= 0 || !has_keys) continue;
    EndLastLine(line_end, out);
    out.append("[").append(made->name).append("]").append(line_end);
    AppendNewKeys(*made, line_end, out);
  }
  return out;
}

}  // namespace tarvok::store
