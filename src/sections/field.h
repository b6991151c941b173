#pragma once

#include <span>
#include <string_view>

namespace tarvok {

/** A value of a closed list: as the project stores it and as people see it. */
struct Choice {
  std::string_view stored;
  std::string_view shown;
};

enum class FieldKind {
  kNumber,  // decimal, low to high
  kHex,     // hexadecimal text, low to high by value
  kAmount,  // decimal with two places, low to high in hundredths
  kDigits,  // telephone digits, at most `high` of them
  kText,    // at most `high` bytes
  kFlag,    // "1" or "0"
  kChoice,  // one of `choices`
  kRow,     // the number of a row of another section, low to high
};

/**
 * A field of a row, written down once: what checks, differences, editors and coders know of it.
 *
 * "F" always means not set. A stored number is padded with zeros to `width` digits (0: not padded).
 */
struct Field {
  std::string_view name;  // as the user knows it
  FieldKind kind = FieldKind::kNumber;
  int low = 0;
  int high = 0;
  int width = 0;
  std::span<const Choice> choices = {};
  std::string_view points_at = {};  // section whose row number this is
  std::string_view symbols = {};    // characters that a digit field takes beside 0 to 9
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
constexpr Field Flag(std::string_view name) {
  return {name, FieldKind::kFlag, 0, 1};
}
constexpr Field OneOf(std::string_view name, std::span<const Choice> choices) {
  return {.name = name, .kind = FieldKind::kChoice, .choices = choices};
}
constexpr Field RowOf(std::string_view name, std::string_view section, int low, int high, int width) {
  return {
      .name = name, .kind = FieldKind::kRow, .low = low, .high = high, .width = width, .points_at = section};
}

/** The keys of a table's rows: first to last, padded to `width` digits, with a suffix behind. */
struct RowKeys {
  int first = 1;
  int last = 0;
  int width = 3;
  std::string_view suffix = {};
};

/** The rows of a project section, or its one key, and the fields that stand in each. */
struct Table {
  std::string_view section;   // project section
  std::string_view row_name;  // what people call a row: "Port"
  RowKeys rows = {};          // last below first: the table is the single key `key`
  std::string_view key = {};
  std::span<const Field> fields = {};
  bool repeats = false;  // the last field stands again and again, to the end of the row
  std::span<const std::string_view> empty_rows = {};  // values that mean an unused row
};

}  // namespace tarvok
