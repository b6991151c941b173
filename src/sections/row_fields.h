#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sections/field.h"
#include "sections/uses.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/**
 * The fields of a row's value, cut and judged as its table states them. Both must outlive it. In a row that
 * is a list, every member counts as a field.
 */
class RowFields {
 public:
  RowFields(const Table& table, std::string_view value);

  int count() const { return static_cast<int>(texts_.size()); }
  /** Field n from 1; "" beyond the end. */
  std::string_view operator[](int n) const;
  /** The field is there and means something else than "not set". */
  bool IsSet(int n) const;
  /** No field of the row is set. */
  bool IsBlank() const;
  /** What field n is in this row; nullptr where another field says that it can't be set. */
  const Field* StatementOf(int n) const;
  /** A piece between two pipes is empty, so that all fields behind it move up. */
  bool has_gap() const { return has_gap_; }

 private:
  const Table& table_;
  std::vector<std::string_view> texts_;
  bool has_gap_ = false;
};

/** The value stands for an unused row: empty, one of the table's empty rows, or nothing set in it. */
bool IsUnused(const Table& table, std::string_view value);

/** Whether row `number`, as people count it, of the section of `table` can be referred to. */
bool IsRowInUse(const IniText& project, const Table& table, int number);

/** One spelling for all texts that mean the same: numbers without padding, named values by their name. */
std::string Canonical(const Field& field, std::string_view text);

/** As people see the value: a reference by what it points at in this project. */
std::string Shown(const IniText& project, const Field& field, std::string_view text);

/** As people call a row: "Port 012 (card 3, channel 4)". */
std::string RowLabel(const IniText& project, const Table& table, int number);

}  // namespace tarvok::sections
