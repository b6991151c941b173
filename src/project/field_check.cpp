#include "project/field_check.h"

#include <algorithm>

#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::project {
namespace {

constexpr std::string_view kDecimal = "0123456789";
constexpr std::string_view kHexadecimal = "0123456789ABCDEFabcdef";
constexpr std::size_t kMostNumberDigits = 9;

bool HoldsOnly(std::string_view text, std::string_view characters) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

std::string OutOfRange(std::string_view text, const std::string& low, const std::string& high) {
  return std::string(text).append(" is not between ").append(low).append(" and ").append(high);
}

std::string InRange(std::string_view text, std::int64_t value, std::int64_t low, std::int64_t high) {
  return value >= low && value <= high ? std::string()
                                       : OutOfRange(text, std::to_string(low), std::to_string(high));
}

std::string TooLong(std::string_view text, int most) {
  if (text.size() <= static_cast<std::size_t>(most)) return {};
  return std::string(text).append(" has more than ").append(std::to_string(most)).append(" characters");
}

/** For a whole number, padded to its field's width. */
std::string WrongNumber(const Field& field, std::string_view text, std::int64_t low, std::int64_t high) {
  if (!HoldsOnly(text, kDecimal) || text.size() > kMostNumberDigits) {
    return std::string(text).append(" is not a number");
  }
  const std::int64_t value = Val(text);
  std::string wrong = InRange(text, value, low, high);
  const bool bare = field.loaded_unpadded && text == std::to_string(value);
  if (wrong.empty() && field.width > 0 && !bare && text != Padded(value, field.width)) {
    wrong.append(text).append(" is not padded as ").append(Padded(value, field.width));
  }
  return wrong;
}

std::string WrongAmount(const Field& field, std::string_view text) {
  const std::size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  const bool digits = HoldsOnly(whole, kDecimal) || (whole.empty() && point != std::string_view::npos);
  const std::string_view rest = point == std::string_view::npos ? "0" : text.substr(point + 1);
  if (!digits || (!rest.empty() && !HoldsOnly(rest, kDecimal))) {
    return std::string(text).append(" is not an amount");
  }
  const std::int64_t value = ValHundredths(text);
  if (value >= field.low && value <= field.high) return {};
  return OutOfRange(text, FormatHundredths(field.low), FormatHundredths(field.high));
}

std::string WrongCharacter(std::string_view text, std::string_view characters) {
  const std::size_t at = text.find_first_not_of(characters);
  if (at == std::string_view::npos) return {};
  return std::string(text).append(" contains the character ").append(text.substr(at, 1));
}

/** A part of a time is valid, too: a time box checks each digit as it is typed, but does not require all
 * four. */
std::string WrongTime(std::string_view text) {
  constexpr std::size_t kLength = 4;
  const auto digit = [&](std::size_t at) { return at < text.size() ? text[at] : '0'; };
  const bool good = text.size() <= kLength && HoldsOnly(text, kDecimal) && digit(0) <= '2' &&
                    (digit(0) < '2' || digit(1) <= '3') && digit(2) <= '5';
  return good ? std::string() : std::string(text).append(" is not a time");
}

std::string WrongText(const Field& field, std::string_view text) {
  const auto is_control = [](char c) { return static_cast<unsigned char>(c) < ' '; };
  if (std::any_of(text.begin(), text.end(), is_control)) {
    return std::string(text).append(" contains a control character");
  }
  return TooLong(text, field.high);
}

std::string WrongColumns(const Field& field, std::string_view text) {
  if (text.size() == static_cast<std::size_t>(field.high) && HoldsOnly(text, "01")) return {};
  return std::string(text).append(" is not ").append(std::to_string(field.high)).append(" digits 0 or 1");
}

std::string WrongCoded(const Field& field, std::string_view text) {
  const CodedParts parts = TakeApart(field, text);
  if (parts.entry == nullptr) return std::string(text).append(" has an unknown code");
  std::string wrong = WrongValue(*parts.entry->argument, parts.argument);
  if (!wrong.empty() || parts.entry->after_comma == nullptr) return wrong;
  return WrongValue(*parts.entry->after_comma, parts.after_comma);
}

/** The name of a field that the row lacks but needs to be referred to; "" if none, and for an unused row. */
std::string_view MissingNeed(const Table& table, std::string_view value) {
  if (IsUnused(table, value)) return {};
  const RowFields row(table, value);
  const auto missing =
      std::find_if(table.needs.begin(), table.needs.end(), [&](int field) { return !row.IsSet(field); });
  return missing == table.needs.end() ? std::string_view()
                                      : table.fields[static_cast<std::size_t>(*missing) - 1].name;
}

}  // namespace

CodedParts TakeApart(const Field& field, std::string_view text) {
  for (const CodedValue& entry : field.codes) {
    if (!text.starts_with(entry.code)) continue;
    const std::string_view argument = text.substr(entry.code.size());
    const std::size_t comma = argument.find(',');
    if ((comma != std::string_view::npos) != (entry.after_comma != nullptr)) continue;
    if (entry.after_comma == nullptr) return {&entry, argument, {}};
    return {&entry, argument.substr(0, comma), argument.substr(comma + 1)};
  }
  return {};
}

std::string WrongValue(const Field& field, std::string_view text) {
  const auto is_text = [&](const Choice& choice) { return choice.stored == text; };
  if (std::any_of(field.choices.begin(), field.choices.end(), is_text)) return {};
  switch (field.kind) {
    case FieldKind::kNumber:
      return WrongNumber(field, text, field.low, field.high);
    case FieldKind::kRow: {
      const RowKeys& rows = field.points_at->rows;
      return WrongNumber(field, text, rows.first - rows.base, rows.last - rows.base);
    }
    case FieldKind::kHex:
      if (!HoldsOnly(text, kHexadecimal)) return std::string(text).append(" is not a hexadecimal number");
      return InRange(text, ValHex(text), field.low, field.high);
    case FieldKind::kAmount:
      return WrongAmount(field, text);
    case FieldKind::kDigits: {
      std::string wrong = WrongCharacter(text, std::string(kDecimal).append(field.symbols));
      return wrong.empty() ? TooLong(text, field.high) : wrong;
    }
    case FieldKind::kText:
      return WrongText(field, text);
    case FieldKind::kTime:
      return WrongTime(text);
    case FieldKind::kFlag:
      return text == "0" || text == "1" ? std::string() : std::string(text).append(" is neither 0 nor 1");
    case FieldKind::kChoice:
      return std::string(text).append(" is not one of its values");
    case FieldKind::kColumns:
      return WrongColumns(field, text);
    case FieldKind::kCoded:
      return WrongCoded(field, text);
  }
  return {};
}

std::string WrongTarget(const IniText& project, const Field& field, std::string_view text) {
  if (field.kind == FieldKind::kCoded) {
    const CodedParts parts = TakeApart(field, text);
    return parts.entry == nullptr ? std::string()
                                  : WrongTarget(project, *parts.entry->argument, parts.argument);
  }
  const auto is_text = [&](const Choice& choice) { return choice.stored == text; };
  if (!field.target_in_use || std::any_of(field.choices.begin(), field.choices.end(), is_text)) return {};
  const Table& target = *field.points_at;
  const auto number = static_cast<int>(Val(text));
  std::string row(target.row_name);
  row.append(" ").append(Padded(number, target.rows.width));
  const std::string_view held = RowValue(project, target, number + target.rows.base);
  if (!IsRowInUse(project, target, number)) {
    const std::string_view missing = MissingNeed(target, held);
    const std::string why = missing.empty() ? " is empty" : std::string(" has no ").append(missing);
    return std::string(text).append(" points nowhere: ").append(row).append(why);
  }
  if (field.target.field == 0) return {};
  const std::string_view value = RowFields(target, held)[field.target.field];
  const auto& wanted = field.target.stored;
  if (std::find(wanted.begin(), wanted.end(), value) != wanted.end()) return {};
  const Field& decisive = target.fields[static_cast<std::size_t>(field.target.field) - 1];
  return std::string(text)
      .append(" points at ")
      .append(row)
      .append(", which has a different ")
      .append(decisive.name);
}

}  // namespace tarvok::project
