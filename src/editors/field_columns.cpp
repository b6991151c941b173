#include "editors/field_columns.h"

#include <algorithm>
#include <utility>

#include "sections/ports/assign.h"
#include "sections/ports/port_def.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::editors {

std::string CellText(std::string_view stored) {
  return stored == kUnset ? std::string() : std::string(stored);
}

std::string FieldText(std::string_view cell) {
  return cell.empty() ? std::string(kUnset) : std::string(cell);
}

FieldColumn ChoiceColumn(int field, std::string title, const Field& statement, std::string overlay) {
  FieldColumn made{
      .field = field,
      .column = {.title = std::move(title), .entry = Entry::kList, .overlay = std::move(overlay)}};
  const std::span<const Choice> choices = statement.choices;
  for (const Choice& choice : choices) made.column.list.emplace_back(choice.shown);
  made.shown = [choices](std::string_view stored) {
    for (const Choice& choice : choices) {
      if (choice.stored == stored) return std::string(choice.shown);
    }
    return std::string();
  };
  made.stored = [choices](std::string_view cell) {
    for (const Choice& choice : choices) {
      if (choice.shown == cell) return std::string(choice.stored);
    }
    return std::string(kUnset);
  };
  return made;
}

FieldColumn TypedColumn(int field, std::string title, EntryRule rule) {
  return {.field = field, .column = {.title = std::move(title), .rule = rule, .overlay = "txtMask"}};
}

FieldColumn NumberColumn(int most) {
  FieldColumn column = TypedColumn(1, "Number", DigitsRule(most));
  column.shown = column.stored = [](std::string_view text) { return std::string(text); };
  return column;
}

FieldColumn LimitedColumn(int field, std::string title, const Field& statement, EntryRule rule,
                          std::string overlay) {
  FieldColumn made = ChoiceColumn(field, std::move(title), statement, std::move(overlay));
  made.column.entry = made.column.list.empty() ? Entry::kText : Entry::kEditList;
  made.column.rule = rule;
  const auto name_of = made.shown;
  const auto named = made.stored;
  made.shown = [name_of, unset = statement.unset_as](std::string_view stored) {
    if (stored == unset) return std::string();
    std::string name = name_of(stored);
    return name.empty() ? CellText(stored) : std::move(name);
  };
  std::string blank(statement.unset_as.empty() ? kUnset : statement.unset_as);
  made.stored = [named, blank = std::move(blank), highest = statement.high](std::string_view cell) {
    if (cell.empty()) return blank;
    std::string stored = named(cell);
    if (stored != kUnset) return stored;
    return Val(cell) > highest ? std::to_string(highest) : std::string(cell);
  };
  return made;
}

void RowNames::Add(int number, std::string name, bool offered) {
  names_.push_back({number, std::move(name), offered});
}

std::string RowNames::NameOf(std::string_view stored) const {
  const std::int64_t number = Val(stored);
  const auto found =
      std::find_if(names_.begin(), names_.end(), [&](const Row& row) { return row.number == number; });
  return found == names_.end() ? std::string() : found->name;
}

std::string RowNames::Stored(std::string_view name, int width, std::string_view before) const {
  if (name.empty()) return std::string(kUnset);
  if (name == NameOf(before)) return Padded(Val(before), width);
  const auto number_of = [&](bool offered) {
    const auto found = std::find_if(names_.begin(), names_.end(), [&](const Row& row) {
      return row.name == name && row.offered == offered;
    });
    return found == names_.end() ? std::string(kUnset) : Padded(found->number, width);
  };
  const std::string number = number_of(true);
  return number == kUnset ? number_of(false) : number;
}

std::vector<std::string> RowNames::Names() const {
  std::vector<std::string> names;
  for (const Row& row : names_) {
    if (row.offered && !row.name.empty()) names.push_back(row.name);
  }
  return names;
}

FieldColumn ReferenceColumn(int field, std::string title, const Field& statement, const RowNames& names,
                            std::string overlay) {
  FieldColumn made = ChoiceColumn(field, std::move(title), statement, std::move(overlay));
  made.shown = [&names, named = made.shown](std::string_view stored) {
    std::string name = named(stored);
    return name.empty() ? names.NameOf(stored) : name;
  };
  made.names = [&names, width = statement.width](const auto& /*cells*/) { return NamedRows{&names, width}; };
  return made;
}

RowNames LabelledRows(const Table& table) {
  RowNames names;
  for (int number = table.rows.first; number <= table.rows.last; ++number)
    names.Add(number, std::string(table.label).append(" ").append(std::to_string(number)));
  return names;
}

RowNames AssignNumbers(const IniText& project) {
  RowNames names;
  for (int row = 1; row <= kAssignRows; ++row) {
    const std::string_view value = RowValue(project, assign::kTable, row);
    if (!value.empty()) names.Add(row, CellText(GetField(value, assign::kNumber)));
  }
  return names;
}

RowNames PortNumbers(const IniText& project) {
  const RowNames numbers = AssignNumbers(project);
  RowNames names;
  for (int row = 1; row <= kPortRows; ++row) {
    const std::string_view port = RowValue(project, port_def::kTable, row);
    if (!IsUnused(port_def::kTable, port)) names.Add(row, numbers.NameOf(GetField(port, port_def::kNumber)));
  }
  return names;
}

RowNames PortNames(const IniText& project, std::string_view type) {
  RowNames names;
  for (int row = 1; row <= kPortRows; ++row) {
    const std::string_view port = RowValue(project, port_def::kTable, row);
    if (IsUnused(port_def::kTable, port) || (!type.empty() && GetField(port, port_def::kType) != type))
      continue;
    const std::string_view card = GetField(port, port_def::kCard);
    const std::string_view channel = GetField(port, port_def::kChannel);
    const bool whole = !card.empty() && card != kUnset && !channel.empty() && channel != kUnset;
    names.Add(row, whole ? std::string(card).append("/").append(channel) : std::string());
  }
  return names;
}

}  // namespace tarvok::editors
