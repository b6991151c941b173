#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sections/table.h"
#include "sections/uses.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/**
 * The fields of a row's value, split and interpreted as its table describes. The table and the value must
 * outlive this object. In a row that is a list, every member counts as a field.
 */
class RowFields {
 public:
  RowFields(const Table& table, std::string_view value);

  int count() const { return static_cast<int>(texts_.size()); }
  /** Field n, from 1; "" past the end. */
  std::string_view operator[](int n) const;
  /** True if the field exists and doesn't mean "not set". */
  bool IsSet(int n) const;
  /** True if no field of the row is set. */
  bool IsBlank() const;
  /** The description of field n in this row, or nullptr if another field says that it can't be set. */
  const Field* StatementOf(int n) const;
  /** True if a piece between two pipes is empty, so that all following fields move up. */
  bool has_gap() const { return has_gap_; }

 private:
  const Table& table_;
  std::vector<std::string_view> texts_;
  bool has_gap_ = false;
};

/** True if the value means an unused row: it is empty, one of the table's empty rows, or has no field set. */
bool IsUnused(const Table& table, std::string_view value);

/** True if row `number`, as shown to the user, of the section of `table` can be referenced. */
bool IsRowInUse(const IniText& project, const Table& table, int number);

/** The one spelling for all texts with the same meaning: numbers without padding, named values by name. */
std::string Canonical(const Field& field, std::string_view text);

/** The value as shown to the user. A reference shows what it points at in this project. */
std::string Shown(const IniText& project, const Field& field, std::string_view text);

/** The row's label for the user: "Port 012 (card 3, channel 4)". */
std::string RowLabel(const IniText& project, const Table& table, int number);

}  // namespace tarvok::sections
