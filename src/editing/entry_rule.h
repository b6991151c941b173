#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editing/uses.h"

namespace tarvok::editing {

/**
 * What a box or a cell takes from the keyboard, a key at a time. No rule takes a line end or another control
 * character, and none of a field of a list a pipe, which would shift all fields behind it.
 */
struct EntryRule {
  std::string_view characters = {};        // empty: any
  std::string_view first_characters = {};  // taken as the first key on a selected cell; empty: the same ones
  int most = 0;                            // characters; 0: no limit
  bool upper = false;                      // letters go in as capitals
  bool in_list = true;          // the text is stored between pipes; false: it is a value of its own
  bool first_replaces = false;  // the first key on a selected cell opens an empty field, others append
  /** A further test: whether `key` may stand behind `text`. */
  bool (*fits)(std::string_view text, char key) = nullptr;
  std::string_view wants = {};     // what that test asks for, to end a refusal: "has to be ..."
  std::string_view reserved = {};  // a whole text that is not taken, although it can be typed on the way
};

/**
 * The text after a character was typed behind `text`, or over it where it is `selected` whole; nothing if the
 * key is dropped. A text that is longer than the rule's limit is cut to it by the key that is dropped.
 */
std::optional<std::string> TypeCharacter(const EntryRule& rule, std::string_view text, bool selected,
                                         char key, bool first_key);

/** A text that comes as a whole, pasted or imported: what typing it into an empty field would leave, with every
 * letter in the case that the rule takes where letters go in as capitals; nothing if a key of it were dropped.
 * `why` then gets what the text breaks, to stand behind it: "may hold digits only". */
std::optional<std::string> TypeWhole(const EntryRule& rule, std::string_view text,
                                     std::string* why = nullptr);

/** The digits 0 to 9, at most `most` of them. */
EntryRule DigitsRule(int most);
/** Any text that a project gives back as it was written: not beginning with a blank, not wrapped in quotes, and
 * not the one that means "not set". */
EntryRule TextRule(int most);
/** Hours 00 to 23 and minutes 00 to 59, a digit at a time; a `fits` of rules. */
bool FitsTime(std::string_view text, char key);
inline constexpr std::string_view kWantsTime = "has to be a time from 0000 to 2359";

/** The same for a highest number of two or three digits; a `fits` of rules. */
template <int Highest>
bool FitsUpTo(std::string_view text, char key) {
  int value = 0;
  for (const char c : text) value = value * 10 + (c - '0');
  return !(text.empty() && key == '0') && value * 10 + (key - '0') <= Highest;
}

/** A number from 1 to `Highest`, of two or three digits: no leading zero, no last digit that would pass it. */
template <int Highest>
EntryRule NumberRule() {
  static const std::string kWants = "has to be from 1 to " + std::to_string(Highest);
  return {
      .characters = "0123456789", .most = Highest < 100 ? 2 : 3, .fits = FitsUpTo<Highest>, .wants = kWants};
}
inline EntryRule ByteRule() {
  return NumberRule<255>();
}
/** Of a byte in which 255 means something else. */
inline EntryRule LimitRule() {
  return NumberRule<254>();
}

}  // namespace tarvok::editing
