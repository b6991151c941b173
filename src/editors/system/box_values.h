#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "editing/editor_form.h"
#include "editors/field_columns.h"
#include "editors/uses.h"
#include "sections/table.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::editors {

/** A field's name as the label of its control. */
inline std::string LabelOf(const Table& table, int field) {
  return std::string(StatementOf(table, field).name) + " :";
}

/** Any number of digits. */
inline EntryRule AnyDigits() {
  return DigitsRule(0);
}

/** The text of a box, or `highest` if its value, decimals included, is at least that. */
inline std::string AtMost(std::string_view typed, int highest) {
  constexpr std::int64_t kHundred = 100;
  return ValHundredths(typed) >= highest * kHundred ? std::to_string(highest) : std::string(typed);
}

/** "1" if the box is on, "0" otherwise. */
inline std::string_view FlagText(const Switch& box) {
  return box.on ? "1" : "0";
}

}  // namespace tarvok::editors
