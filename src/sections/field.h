#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "sections/record_item.h"
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
  const Field* argument;                // what follows the code, up to the comma if there is one
  const Field* behind_comma = nullptr;  // nullptr: no comma
  bool once = false;                    // the same value may occur only once in a row
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

/** The keys of a table's rows: `first` to `last`, padded to `width` digits, between a prefix and a suffix.
 * The number shown to the user, and used in references, is the row number minus `base`. */
struct RowKeys {
  int first = 1;
  int last = 0;
  int width = 3;
  std::string_view suffix = {};
  std::string_view prefix = {};
  int base = 0;
  int kept = 0;  // rows after `last`, up to this one, belong to an editor and are never sent
};

/** Limits and layout of a row that is a list of members (see Table::repeats). */
struct Members {
  int most = 0;              // per row; 0: limited only by the pool
  int pool = 0;              // for all rows of the table together; 0: no pool
  bool packed = false;       // the pool counts bytes: the packed digits and one more byte for each member
  bool numbered = false;     // members have numbered places; "F" marks a free one
  bool every_piece = false;  // an empty piece or "F" is a member too
};

/** Fields of a row that a form of their own edits. */
struct EditedElsewhere {
  int first;
  int last;
  std::string_view command;  // as Table::command
};

/** What the key "Now" counts. */
enum class NowCounts { kNothing, kRows, kMembers };

/** A field that identifies a row to the user, and the word shown before it. */
struct Mark {
  int field;
  std::string_view word;
};

/** Fields whose combination must be unique among the rows whose field `only_field` is `only_value`. */
struct Unique {
  std::span<const int> fields;
  std::string_view name;  // what the fields together are called
  int only_field = 0;     // 0: among all rows
  std::string_view only_value = {};
};

inline constexpr std::string_view kMaxKey = "Max";
inline constexpr std::string_view kNowKey = "Now";
inline constexpr std::string_view kCountKeys[] = {kMaxKey, kNowKey};

/** The rows of a project section, or a single key of it, and the fields of each. */
struct Table {
  std::string_view section;       // project section
  std::string_view row_name;      // what the user calls a row: "Port"
  std::string_view command = {};  // key of the command whose form edits the rows; empty: no form does
  std::span<const EditedElsewhere> edited_elsewhere = {};
  RowKeys rows = {};  // if last is below first, the table is the single key `key`
  std::string_view key = {};
  std::span<const Field> fields = {};
  std::span<const RecordItem> record = {};  // the bytes of a row, if they are regular
  bool repeats = false;                     // the last field repeats to the end of the row
  Members members = {};
  std::span<const std::string_view> empty_rows = {};  // values that mean an unused row
  bool missing_differs = false;  // a missing key differs from a row in which nothing is set
  int fewest_fields = 0;         // in a row that a load writes; 0: every row has all fields
  std::span<const Mark> marks = {};
  std::string_view label = {};      // shown in references with the row's number, instead of the marks
  std::span<const int> needs = {};  // a row can be referenced only if all these fields are set
  std::span<const Unique> unique = {};
  NowCounts now = NowCounts::kNothing;
  std::span<const std::string_view> counts = kCountKeys;  // keys that count the section's rows
  const Table* ends_of = nullptr;  // each row holds the number after its last row in that shared table

  bool single() const { return rows.last < rows.first; }
  /** True if the one field is the whole value, pipes included. */
  bool whole_value() const { return fields.size() == 1 && !repeats; }
};

}  // namespace tarvok::sections
