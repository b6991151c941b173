#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "project/call_path.h"
#include "project/uses.h"
#include "sections/row_fields.h"
#include "sections/rows.h"

namespace tarvok::project {

/** A row of a table with its fields as the user sees them. The project must outlive it. */
class RowInWords {
 public:
  RowInWords(const IniText& project, const Table& table, int number)
      : project_(project), table_(table), number_(number), value_(Value()), fields_(table, value_) {}

  int number() const { return number_; }
  std::string_view value() const { return value_; }
  bool Has(int field) const { return fields_.StatementOf(field) != nullptr && fields_.IsSet(field); }
  /** The field as shown to the user; "" if it is not set. */
  std::string Text(int field) const {
    return Has(field) ? Shown(project_, *fields_.StatementOf(field), fields_[field]) : std::string();
  }
  /** The row of `target` that the field refers to; 0 if none. */
  int Target(int field, const Table& target) const {
    const bool points = Has(field) && fields_.StatementOf(field)->points_at == &target;
    const std::int64_t row = points ? Val(fields_[field]) : 0;
    return row >= target.rows.first && row <= target.rows.last ? static_cast<int>(row) : 0;
  }
  /** A node whose place is this row. */
  PathNode Node(std::string text) const {
    const std::string key = number_ > 0 ? KeyOf(table_, number_) : std::string();
    return {std::move(text), {std::string(table_.section), key, number_, 0}, {}};
  }

 private:
  std::string_view Value() const {
    const bool is_row =
        number_ >= table_.rows.first && number_ <= std::max(table_.rows.last, table_.rows.kept);
    return is_row ? RowValue(project_, table_, number_) : std::string_view();
  }

  const IniText& project_;
  const Table& table_;
  int number_;
  std::string_view value_;
  RowFields fields_;
};

/** Appends a part to a comma-separated text. */
inline void AddPart(std::string& text, std::string_view words, std::string_view what = {}) {
  if (!text.empty()) text += ", ";
  text.append(words).append(what.empty() ? "" : " ").append(what);
}

}  // namespace tarvok::project
