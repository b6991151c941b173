#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editing/uses.h"

namespace tarvok::editing {

/**
 * What a box or a cell accepts from the keyboard, key by key. No rule accepts line ends or other control
 * characters, nor a pipe in a field of a list, which would shift the fields after it.
 */
struct EntryRule {
  std::string_view characters = {};        // empty: any
  std::string_view first_characters = {};  // accepted as the first key on a selected cell; empty: the same
  int most = 0;                            // characters; 0: no limit
  bool upper = false;                      // letters become capitals
  bool in_list = true;                     // the text is stored between pipes; false: it is a whole value
  bool first_replaces = false;             // the first key on a selected cell replaces its text
  /** A further test: true if `key` may follow `text`. */
  bool (*fits)(std::string_view text, char key) = nullptr;
  std::string_view wants = {};     // what that test requires, to complete a message: "must be ..."
  std::string_view reserved = {};  // a text that can be typed but not left in a cell
};

/**
 * The text after a character is typed after `text`, or over it if it is `selected`; nullopt if the key is
 * dropped. A text longer than the rule's limit is cut to the limit instead.
 */
std::optional<std::string> TypeCharacter(const EntryRule& rule, std::string_view text, bool selected,
                                         char key, bool first_key);

/** For pasted and imported text: the result of typing it into an empty field, with the case of letters
 * adjusted if the rule makes capitals; nullopt if any key would be dropped. `why` then gets a reason that can
 * follow the text: "may contain only digits". */
std::optional<std::string> TypeWhole(const EntryRule& rule, std::string_view text,
                                     std::string* why = nullptr);

/** The digits 0 to 9, at most `most` of them. */
EntryRule DigitsRule(int most);
/** Any text that a project returns as it was written: no leading blank, no quotes around it, and not the text
 * that means "not set". */
EntryRule TextRule(int most);
/** A `fits` for hours 00 to 23 and minutes 00 to 59, digit by digit. */
bool FitsTime(std::string_view text, char key);
inline constexpr std::string_view kWantsTime = "must be a time from 0000 to 2359";

/** A `fits` for numbers up to a highest one of two or three digits. */
template <int Highest>
bool FitsUpTo(std::string_view text, char key) {
  int value = 0;
  for (const char c : text) value = value * 10 + (c - '0');
  return !(text.empty() && key == '0') && value * 10 + (key - '0') <= Highest;
}

/** A number from 1 to `Highest`, which has two or three digits. Leading zeros and digits that exceed it are
 * dropped. */
template <int Highest>
EntryRule NumberRule() {
  static const std::string kWants = "must be from 1 to " + std::to_string(Highest);
  return {
      .characters = "0123456789", .most = Highest < 100 ? 2 : 3, .fits = FitsUpTo<Highest>, .wants = kWants};
}
inline EntryRule ByteRule() {
  return NumberRule<255>();
}
/** For a byte in which 255 has a special meaning. */
inline EntryRule LimitRule() {
  return NumberRule<254>();
}

}  // namespace tarvok::editing
