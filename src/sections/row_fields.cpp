#include "sections/row_fields.h"

#include <algorithm>

#include "sections/registry.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/number_text.h"
#include "store/value_code.h"

namespace tarvok::sections {
namespace {

constexpr std::string_view kOn = "on";
constexpr std::string_view kOff = "off";

/** True if the text has only these characters and is neither empty nor too long for a number. */
bool IsMadeOf(std::string_view characters, std::string_view text) {
  constexpr std::size_t kMostDigits = 15;
  return !text.empty() && text.size() <= kMostDigits &&
         text.find_first_not_of(characters) == std::string_view::npos;
}

bool IsWholeNumber(std::string_view text) {
  return IsMadeOf("0123456789", text);
}

/** True if the list of row `number` is not empty, that is, if it ends after all lists before it. */
bool EndsHigher(const IniText& project, const Table& table, int number) {
  std::int64_t highest = 1;  // where an empty first list ends
  for (int row = table.rows.first; row < number; ++row) {
    highest = std::max(highest, Val(RowValue(project, table, row)));
  }
  return Val(RowValue(project, table, number)) > highest;
}

bool HasNeededFields(const Table& table, std::string_view value) {
  if (IsUnused(table, value)) return false;
  const RowFields row(table, value);
  return std::all_of(table.needs.begin(), table.needs.end(), [&](int field) { return row.IsSet(field); });
}

std::string ShownTarget(const IniText& project, const Field& field, std::string_view text) {
  const Table& target = *field.points_at;
  const auto number = static_cast<int>(Val(text));
  if (!target.label.empty()) return std::string(target.label).append(" ").append(std::to_string(number));
  const std::string_view value = RowValue(project, target, number + target.rows.base);
  const RowFields row(target, value);
  if (field.shown_by > 0) {
    return row.IsSet(field.shown_by) ? Shown(project, *row.StatementOf(field.shown_by), row[field.shown_by])
                                     : std::string(text);
  }
  std::string shown;
  for (const Mark& mark : target.marks) {
    if (!row.IsSet(mark.field)) return std::string(text);
    shown.append(shown.empty() ? "" : "/").append(row[mark.field]);
  }
  return shown.empty() ? std::to_string(number) : shown;
}

}  // namespace

RowFields::RowFields(const Table& table, std::string_view value) : table_(table) {
  if (table.whole_value()) {
    if (!value.empty()) texts_.push_back(value);
    return;
  }
  ForEachPiece(value, [&](std::string_view piece) { texts_.push_back(piece); });
  if (table.members.every_piece) return;
  if (!texts_.empty() && texts_.back().empty()) texts_.pop_back();  // a closing pipe is always ignored
  has_gap_ = std::erase(texts_, std::string_view()) > 0;
}

std::string_view RowFields::operator[](int n) const {
  return n < 1 || n > count() ? std::string_view() : texts_[static_cast<std::size_t>(n) - 1];
}

bool RowFields::IsSet(int n) const {
  if (n > count()) return false;
  if (table_.members.every_piece) return true;
  const std::string_view text = (*this)[n];
  const Field* field = StatementOf(n);
  if (field == nullptr) return text != kUnset;
  if (text == kUnset && field->kind != FieldKind::kHex) return false;
  return field->unset_as.empty() || Canonical(*field, text) != Canonical(*field, field->unset_as);
}

bool RowFields::IsBlank() const {
  for (int n = 1; n <= count(); ++n) {
    if (IsSet(n)) return false;
  }
  return true;
}

const Field* RowFields::StatementOf(int n) const {
  const auto index = std::min(static_cast<std::size_t>(n), table_.fields.size()) - 1;
  const Field& field = table_.fields[index];
  if (field.decided_by == 0) return &field;
  for (const Meaning& meaning : field.meanings) {
    if (meaning.when == (*this)[field.decided_by]) return meaning.field;
  }
  return nullptr;
}

bool IsUnused(const Table& table, std::string_view value) {
  if (value.empty() || IsEmptyRow(table, value)) return true;
  return !table.missing_differs && RowFields(table, value).IsBlank();
}

bool IsRowInUse(const IniText& project, const Table& table, int number) {
  for (const Table* candidate : Tables()) {
    const int row = number + candidate->rows.base;
    if (candidate->section != table.section || row < candidate->rows.first || row > candidate->rows.last)
      continue;
    if (candidate->ends_of != nullptr ? EndsHigher(project, *candidate, row)
                                      : HasNeededFields(*candidate, RowValue(project, *candidate, row)))
      return true;
  }
  return false;
}

std::string Canonical(const Field& field, std::string_view text) {
  for (const Choice& choice : field.choices) {
    if (choice.stored == text) return std::string(choice.shown);
  }
  switch (field.kind) {
    case FieldKind::kNumber:
    case FieldKind::kRow:
      return IsWholeNumber(text) ? std::to_string(Val(text)) : std::string(text);
    case FieldKind::kHex:
      return IsMadeOf("0123456789ABCDEFabcdef", text) ? DecToHex(static_cast<std::uint64_t>(ValHex(text)))
                                                      : std::string(text);
    case FieldKind::kAmount:
      return IsMadeOf("0123456789.", text) ? FormatHundredths(ValHundredths(text)) : std::string(text);
    case FieldKind::kFlag:
      return std::string(text == "1" ? kOn : text == "0" ? kOff : text);
    default:
      return std::string(text);
  }
}

std::string Shown(const IniText& project, const Field& field, std::string_view text) {
  const bool named = std::any_of(field.choices.begin(), field.choices.end(),
                                 [&](const Choice& choice) { return choice.stored == text; });
  if (field.kind == FieldKind::kRow && !named && IsWholeNumber(text)) {
    return ShownTarget(project, field, text);
  }
  return Canonical(field, text);
}

std::string RowLabel(const IniText& project, const Table& table, int number) {
  std::string label(table.row_name);
  if (table.single()) return label;
  const RowKeys& rows = table.rows;
  label.append(" ").append(rows.base > 0 ? std::to_string(number - rows.base) : Padded(number, rows.width));
  const RowFields row(table, RowValue(project, table, number));
  std::string marks;
  for (const Mark& mark : table.marks) {
    if (!row.IsSet(mark.field)) continue;
    marks.append(marks.empty() ? "" : ", ").append(mark.word).append(mark.word.empty() ? "" : " ");
    marks.append(row[mark.field]);
  }
  return marks.empty() ? label : label.append(" (").append(marks).append(")");
}

}  // namespace tarvok::sections
