#pragma once

#include <span>
#include <string_view>

#include "sections/uses.h"

namespace tarvok::sections {

struct Field;
struct Table;

/** Stands for the value of a secret field. */
inline constexpr std::string_view kHiddenValue = "(hidden)";

/** A value with a name: as the project stores it and as people see it. */
struct Choice {
  std::string_view stored;
  std::string_view shown;
};

enum class FieldKind {
  kNumber,   // decimal, low to high
  kHex,      // hexadecimal text, low to high by value; "F" is a digit
  kAmount,   // decimal with two places, low to high in hundredths
  kDigits,   // telephone digits, at most `high` of them
  kText,     // at most `high` bytes
  kTime,     // hour and minute, four digits
  kFlag,     // "1" or "0"
  kChoice,   // one of `choices`
  kRow,      // the number of a row of `points_at`
  kColumns,  // exactly `high` characters "0" or "1", the leftmost for column `low` + `high` - 1
  kCoded,    // one of `codes` with its argument
};

/** What a value with a code in front of it is made of. The first entry that fits counts. */
struct CodedValue {
  std::string_view code;
  const Field* argument;                // what follows the code, or stands in front of the comma
  const Field* behind_comma = nullptr;  // nullptr: there is no comma
  bool once = false;                    // the whole value may stand only once in its row
};

/** What a field is while another field of its row, `Field::decided_by`, holds the value `when`. */
struct Meaning {
  std::string_view when;
  const Field* field;
};

/** The rows of another section that a reference may point at: those with one of these values in a field. */
struct RowFilter {
  int field = 0;  // 0: any row
  std::span<const std::string_view> stored = {};
};

/**
 * A field of a row, written down once: what checks, differences, editors and coders know of it.
 *
 * "F" means not set. A stored number is padded with zeros to `width` digits (0: not padded).
 */
struct Field {
  std::string_view name;  // as the user knows it
  FieldKind kind = FieldKind::kNumber;
  int low = 0;
  int high = 0;
  int width = 0;
  std::span<const Choice> choices = {};  // all values of a choice; of a number those with a name of their own
  std::string_view symbols = {};         // characters that a digit field takes beside 0 to 9
  std::string_view unset_as = {};        // the stored value that means the same as "F"
  bool loaded_unpadded = false;          // a load from an exchange leaves the padding out
  const Table* points_at = nullptr;      // whose row number this is; its rows are the range
  bool target_in_use = false;            // the row that it points at has to be in use
  RowFilter target = {};
  int shown_by = 0;    // field of the row that it points at by which people see it; 0: that row's marks
  int decided_by = 0;  // field of the same row that decides what this one is
  std::span<const Meaning> meanings = {};  // without one that fits, the field is not set
  std::span<const CodedValue> codes = {};
  bool secret = false;  // a password: differences, findings and logs never show its value

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
/** A row of another section that has to be in use. */
constexpr Field RowOf(std::string_view name, const Table& table, int width) {
  return {.name = name, .kind = FieldKind::kRow, .width = width, .points_at = &table, .target_in_use = true};
}
/** A row of another section that means something when it is empty, too. */
constexpr Field AnyRowOf(std::string_view name, const Table& table, int width) {
  return {.name = name, .kind = FieldKind::kRow, .width = width, .points_at = &table};
}
constexpr Field DecidedBy(std::string_view name, int field, std::span<const Meaning> meanings) {
  return {.name = name, .decided_by = field, .meanings = meanings};
}
constexpr Field Coded(std::string_view name, std::span<const CodedValue> codes) {
  return {.name = name, .kind = FieldKind::kCoded, .codes = codes};
}

/** The keys of a table's rows: first to last, padded to `width` digits, between a prefix and a suffix. People
 * count the rows from the number behind `base` on. */
struct RowKeys {
  int first = 1;
  int last = 0;
  int width = 3;
  std::string_view suffix = {};
  std::string_view prefix = {};
  int base = 0;
  int kept = 0;  // rows above `last` up to this one are an editor's own; they do not travel
};

/** What a row that is a list of its last field holds. */
struct Members {
  int most = 0;              // in one row; 0: no limit but the pool's
  int pool = 0;              // in all rows of the table together; 0: no pool
  bool packed = false;       // the pool counts bytes: those of the packed digits and one behind each member
  bool numbered = false;     // they stand in numbered places, "F" in a free one
  bool every_piece = false;  // a piece that is empty or "F" is a member like any other
};

/** What the key "Now" counts. */
enum class NowCounts { kNothing, kRows, kMembers };

/** A field by which people tell a row, and what they say in front of it. */
struct Mark {
  int field;
  std::string_view word;
};

/** Fields that no two rows may have alike, among the rows whose field `only_field` is `only_value`. */
struct Unique {
  std::span<const int> fields;
  std::string_view name;  // what the fields are together
  int only_field = 0;     // 0: among all rows
  std::string_view only_value = {};
};

inline constexpr std::string_view kMaxKey = "Max";
inline constexpr std::string_view kNowKey = "Now";
inline constexpr std::string_view kCountKeys[] = {kMaxKey, kNowKey};

/** The rows of a project section, or its one key, and the fields that stand in each. */
struct Table {
  std::string_view section;   // project section
  std::string_view row_name;  // what people call a row: "Port"
  RowKeys rows = {};          // last below first: the table is the single key `key`
  std::string_view key = {};
  std::span<const Field> fields = {};
  bool repeats = false;  // the last field stands again and again, to the end of the row
  Members members = {};
  std::span<const std::string_view> empty_rows = {};  // values that mean an unused row
  bool missing_differs = false;  // a missing key is not the same as a row in which nothing is set
  int fewest_fields = 0;         // of a row as a load leaves it; 0: all fields stand in every row
  std::span<const Mark> marks = {};
  std::string_view label = {};      // a reference shows this and the row's number instead of the marks
  std::span<const int> needs = {};  // a row without one of these fields is none to refer to
  std::span<const Unique> unique = {};
  NowCounts now = NowCounts::kNothing;
  std::span<const std::string_view> counts = kCountKeys;  // keys that count the section's rows
  const Table* ends_of = nullptr;  // a row is the number behind its last row of that table, which all share

  bool single() const { return rows.last < rows.first; }
  /** The one field is the whole value, pipes included. */
  bool whole_value() const { return fields.size() == 1 && !repeats; }
};

}  // namespace tarvok::sections
