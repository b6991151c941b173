#include "shell/editor/entry_rule.h"

namespace tarvok {
namespace {

constexpr std::string_view kDigits = "0123456789";

bool IsKept(const EntryRule& rule, char key) {
  const auto byte = static_cast<unsigned char>(key);
  return byte >= 0x20 && byte != 0x7F && (key != '|' || !rule.in_list);
}

bool Takes(std::string_view characters, char key) {
  return characters.empty() || characters.find(key) != std::string_view::npos;
}

bool IsQuote(char key) {
  return key == '\'' || key == '"';
}

/** The reader of a project drops blanks in front and a pair of quotes around a value. */
bool FitsText(std::string_view text, char key) {
  if (text.empty()) return key != ' ';
  return !(IsQuote(key) && text.front() == key);
}

char Capital(char key) {
  return key >= 'a' && key <= 'z' ? static_cast<char>(key - 'a' + 'A') : key;
}

}  // namespace

std::optional<std::string> TypeCharacter(const EntryRule& rule, std::string_view text, bool selected,
                                         char key, bool first_key) {
  const bool first = first_key && !rule.first_characters.empty();
  if (!IsKept(rule, key) || !Takes(first ? rule.first_characters : rule.characters, key)) return std::nullopt;
  std::string typed(selected ? std::string_view() : text);
  const auto most = static_cast<std::size_t>(rule.most);
  if (rule.most > 0 && typed.size() >= most) {
    if (typed.size() == most) return std::nullopt;
    typed.resize(most);
    return typed;
  }
  if (rule.fits != nullptr && !rule.fits(typed, key)) return std::nullopt;
  typed += rule.upper ? Capital(key) : key;
  return typed;
}

std::optional<std::string> TypeWhole(const EntryRule& rule, std::string_view text) {
  std::string typed;
  for (const char key : text) {
    std::optional<std::string> next = TypeCharacter(rule, typed, false, key, false);
    if (!next && typed.empty()) next = TypeCharacter(rule, typed, false, key, true);
    if (!next || next->size() != typed.size() + 1) return std::nullopt;
    typed = *std::move(next);
  }
  return typed;
}

bool FitsTime(std::string_view text, char key) {
  switch (text.size()) {
    case 0:
      return key <= '2';
    case 1:
      return text[0] < '2' || key <= '3';
    case 2:
      return key <= '5';
    default:
      return true;
  }
}

EntryRule DigitsRule(int most) {
  return {.characters = kDigits, .most = most};
}

EntryRule TextRule(int most) {
  return {.most = most, .fits = FitsText};
}

EntryRule LimitRule() {
  constexpr int kHighest = 254;
  return {.characters = kDigits, .most = 3, .fits = FitsUpTo<kHighest>};
}

EntryRule ByteRule() {
  constexpr int kHighest = 255;
  return {.characters = kDigits, .most = 3, .fits = FitsUpTo<kHighest>};
}

}  // namespace tarvok
