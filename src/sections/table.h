#pragma once

#include <span>
#include <string_view>

#include "sections/field.h"
#include "sections/record_item.h"
#include "sections/uses.h"

namespace tarvok::sections {

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

/** The error for a list member when the pool is full. Only the pool of class numbers is packed. */
constexpr std::string_view PoolFull(const Members& members) {
  return members.packed ? "has no place in the pool that all classes share"
                        : "has no place in the pool that all groups share";
}

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
