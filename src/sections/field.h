#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "sections/uses.h"

namespace tarvok::sections {

struct Field;
struct Table;

/** Shown in place of the value of a secret field. */
inline constexpr std::string_view kHiddenValue = "(hidden)";

/** A named value: as the project stores it and as the user sees it. */
struct Choice {
  std::string_view stored;
  std::string_view shown;
};

enum class FieldKind {
  kNumber,   // decimal, low to high
  kHex,      // hexadecimal text, low to high by value; "F" is a digit
  kAmount,   // decimal with two places; low and high are in hundredths
  kDigits,   // telephone digits, at most `high` of them
  kText,     // at most `high` bytes
  kTime,     // hour and minute, four digits
  kFlag,     // "1" or "0"
  kChoice,   // one of `choices`
  kRow,      // the number of a row of `points_at`
  kColumns,  // exactly `high` characters "0" or "1", the leftmost for column `low` + `high` - 1
  kCoded,    // one of `codes` with its argument
};

/** One form of a value that starts with a code. The first form that fits applies. */
struct CodedValue {
  std::string_view code;
  const Field* argument;               // what follows the code, up to the comma if there is one
  const Field* after_comma = nullptr;  // nullptr: no comma
  bool once = false;                   // the same value may occur only once in a row
};

/** What a field means while the field `Field::decided_by` of the same row holds the value `when`. */
struct Meaning {
  std::string_view when;
  const Field* field;
};

/** Limits a reference to the target rows whose field `field` holds one of the values `stored`. */
struct RowFilter {
  int field = 0;  // 0: any row
  std::span<const std::string_view> stored = {};
};

/**
 * The description of a field of a row. Checks, differences, editors and coders all use it.
 *
 * "F" means not set. A stored number is padded with zeros to `width` digits (0: not padded).
 */
struct Field {
  std::string_view name;  // as shown to the user
  FieldKind kind = FieldKind::kNumber;
  int low = 0;
  int high = 0;
  int width = 0;
  std::span<const Choice> choices = {};  // all values of a choice; the named values of a number
  std::string_view symbols = {};         // characters allowed in a digit field besides 0 to 9
  std::string_view unset_as = {};        // the stored value that means the same as "F"
  bool loaded_unpadded = false;          // a load from an exchange writes it without padding
  const Table* points_at = nullptr;      // the table whose row number this is; its rows give the range
  bool target_in_use = false;            // the target row must be in use
  RowFilter target = {};
  int shown_by = 0;    // field of the target row to show instead of the number; 0: the row's marks
  int decided_by = 0;  // field of the same row that decides what this one means
  std::span<const Meaning> meanings = {};  // if none fits, the field cannot be set
  std::span<const CodedValue> codes = {};
  bool secret = false;  // a password; never shown in differences, findings and logs

  constexpr Field Secret() const {
    Field field = *this;
    field.secret = true;
    return field;
  }
  constexpr Field UnsetAs(std::string_view stored) const {
    Field field = *this;
    field.unset_as = stored;
    return field;
  }
  constexpr Field Named(std::span<const Choice> named) const {
    Field field = *this;
    field.choices = named;
    return field;
  }
  constexpr Field LoadedUnpadded() const {
    Field field = *this;
    field.loaded_unpadded = true;
    return field;
  }
  constexpr Field ShownBy(int target_field) const {
    Field field = *this;
    field.shown_by = target_field;
    return field;
  }
  constexpr Field Only(RowFilter rows) const {
    Field field = *this;
    field.target = rows;
    return field;
  }
};

constexpr Field Number(std::string_view name, int low, int high, int width = 0) {
  return {name, FieldKind::kNumber, low, high, width};
}
constexpr Field Digits(std::string_view name, int most, std::string_view symbols = {}) {
  return {.name = name, .kind = FieldKind::kDigits, .high = most, .symbols = symbols};
}
constexpr Field Text(std::string_view name, int most) {
  return {name, FieldKind::kText, 0, most};
}
constexpr Field Time(std::string_view name) {
  return {.name = name, .kind = FieldKind::kTime};
}
constexpr Field Flag(std::string_view name) {
  return {.name = name, .kind = FieldKind::kFlag};
}
constexpr Field OneOf(std::string_view name, std::span<const Choice> choices) {
  return {.name = name, .kind = FieldKind::kChoice, .choices = choices};
}
/** A reference to a row of another section; the row must be in use. */
constexpr Field RowOf(std::string_view name, const Table& table, int width) {
  return {.name = name, .kind = FieldKind::kRow, .width = width, .points_at = &table, .target_in_use = true};
}
/** A reference to a row of another section; the row may be empty. */
constexpr Field AnyRowOf(std::string_view name, const Table& table, int width) {
  return {.name = name, .kind = FieldKind::kRow, .width = width, .points_at = &table};
}
constexpr Field DecidedBy(std::string_view name, int field, std::span<const Meaning> meanings) {
  return {.name = name, .decided_by = field, .meanings = meanings};
}
constexpr Field Coded(std::string_view name, std::span<const CodedValue> codes) {
  return {.name = name, .kind = FieldKind::kCoded, .codes = codes};
}

struct NumberedField {
  int number;
  Field field;
};
/** The fields of a row. The compiler refuses them if their numbers do not count from 1. */
template <std::size_t kCount>
consteval std::array<Field, kCount> FieldsOf(const NumberedField (&numbered)[kCount]) {
  std::array<Field, kCount> fields;
  for (std::size_t i = 0; i < kCount; ++i) {
    if (numbered[i].number != static_cast<int>(i) + 1) throw "a field is not in its place";
    fields[i] = numbered[i].field;
  }
  return fields;
}

}  // namespace tarvok::sections
