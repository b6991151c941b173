#include "editing/entry_rule.h"

#include "store/field_list.h"

namespace tarvok::editing {
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

/** Reading a project drops leading blanks and a pair of quotes around a value. */
bool FitsText(std::string_view text, char key) {
  if (text.empty()) return key != ' ';
  return !(IsQuote(key) && text.front() == key);
}

char Capital(char key) {
  return key >= 'a' && key <= 'z' ? static_cast<char>(key - 'a' + 'A') : key;
}

char Small(char key) {
  return key >= 'A' && key <= 'Z' ? static_cast<char>(key - 'A' + 'a') : key;
}

/** The text with one more character of a whole text, in whichever case the rule accepts; nullopt if
 * neither. */
std::optional<std::string> Longer(const EntryRule& rule, const std::string& text, char key) {
  for (const char each : {key, rule.upper ? Capital(key) : key, rule.upper ? Small(key) : key}) {
    for (const bool first : {false, true}) {
      if (first && !text.empty()) continue;
      std::optional<std::string> next = TypeCharacter(rule, text, false, each, first);
      if (next && next->size() == text.size() + 1) return next;
    }
  }
  return std::nullopt;
}

/** The characters that a rule accepts, each once, as they are stored. */
std::string Taken(const EntryRule& rule) {
  std::string taken;
  for (const char key : rule.characters) {
    const char kept = rule.upper ? Capital(key) : key;
    if (taken.find(kept) == std::string::npos) taken += kept;
  }
  return taken;
}

/** Why a character of a whole text is not accepted after `text`. */
std::string WhyNot(const EntryRule& rule, std::string_view text, char key) {
  if (!IsKept(rule, key)) return key == '|' ? "cannot contain \"|\"" : "cannot contain a control character";
  const auto takes = [&](std::string_view characters) {
    return Takes(characters, key) ||
           (rule.upper && (Takes(characters, Capital(key)) || Takes(characters, Small(key))));
  };
  if (!takes(rule.characters)) {
    if (!rule.first_characters.empty() && takes(rule.first_characters))
      return std::string("can contain \"") + (rule.upper ? Capital(key) : key) + "\" only at the start";
    return rule.characters == kDigits ? "may contain only digits" : "may contain only " + Taken(rule);
  }
  if (rule.most > 0 && text.size() >= static_cast<std::size_t>(rule.most))
    return "is too long: at most " + std::to_string(rule.most) +
           (rule.characters == kDigits ? " digits" : " characters");
  if (rule.fits == FitsText) return text.empty() ? "cannot start with a blank" : "cannot be in quotes";
  return rule.wants.empty() ? "is not accepted by this column" : std::string(rule.wants);
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

std::optional<std::string> TypeWhole(const EntryRule& rule, std::string_view text, std::string* why) {
  std::string typed;
  for (const char key : text) {
    std::optional<std::string> next = Longer(rule, typed, key);
    if (!next) {
      if (why != nullptr) *why = WhyNot(rule, typed, key);
      return std::nullopt;
    }
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
  return {.most = most, .fits = FitsText, .reserved = kUnset};
}

}  // namespace tarvok::editing
