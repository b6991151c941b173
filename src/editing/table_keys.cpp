// Keys in a table.

#include <algorithm>
#include <optional>

#include "editing/table_operations.h"
#include "store/ini_text.h"

namespace tarvok::editing {
namespace {

Entry EntryOf(const TableEditor& table) {
  return table.EntryOf(table.current_row(), table.current_column());
}

std::vector<std::string> ListOf(const TableEditor& table) {
  return table.ListOf(table.current_row(), table.current_column());
}

const EntryRule& RuleOf(const TableEditor& table) {
  return table.column(table.current_column()).rule;
}

bool IsBlank(const TableEditor& table) {
  return table.IsBlank(table.current_row(), table.current_column());
}

void Move(TableEditor& table, int rows, int columns) {
  const int row = rows == 0 ? table.current_row() : table.NextInSight(table.current_row() + rows, rows);
  table.GoTo(row > 0 ? row : table.current_row(),
             std::clamp(table.current_column() + columns, 1, table.columns()));
}

/** Types a character after a text, or over it if it is `selected`. */
void Type(TableEditor& table, std::string_view text, bool selected, char key, bool first) {
  const std::optional<std::string> typed = TypeCharacter(RuleOf(table), text, selected, key, first);
  if (typed) table.Write(*typed);
}

/** Opens the field with the key, or empty if the key is not accepted. */
void OpenWith(TableEditor& table, char key) {
  const std::optional<std::string> typed = TypeCharacter(RuleOf(table), {}, false, key, true);
  table.OpenEmpty();
  if (typed) table.Write(*typed);
}

/** Goes to the first entry that starts with what was typed since the list opened, or else with this key
 * alone. */
void SeekEntry(TableEditor& table, char key) {
  const std::vector<std::string> list = ListOf(table);
  for (const std::string& sought : {table.sought() + key, std::string(1, key)}) {
    const std::string folded = FoldName(sought);
    const auto found = std::ranges::find_if(
        list, [&](const std::string& entry) { return FoldName(entry).starts_with(folded); });
    if (found == list.end()) continue;
    table.sought() = sought;
    return table.Write(*found);
  }
}

/** A key on a selected cell of text. */
void PressText(TableEditor& table, Key key) {
  const std::string& text = table.Cell(table.current_row(), table.current_column());
  if (key.code == KeyCode::kBackspace) {
    if (!text.empty()) table.Write(std::string_view(text).substr(0, text.size() - 1));
  } else if (key.code == KeyCode::kDelete) {
    if (!IsBlank(table)) table.Write({});
  } else if (key.code == KeyCode::kCharacter && RuleOf(table).first_replaces) {
    OpenWith(table, key.character);
  } else if (key.code == KeyCode::kCharacter) {
    Type(table, text, false, key.character, true);
  }
}

/** A key on a selected cell with a list: it opens the list. */
void PressList(TableEditor& table, Key key) {
  if (key.code == KeyCode::kDelete) {
    if (!IsBlank(table)) table.Write({});
  } else if (key.code == KeyCode::kCharacter && EntryOf(table) == Entry::kEditList) {
    OpenWith(table, key.character);
  } else if (key.code != KeyCode::kEscape) {
    table.Open();
    if (key.code == KeyCode::kCharacter && table.open()) SeekEntry(table, key.character);
  }
}

/** Up and Down in the open list; above the first entry is the blank one. */
void StepInList(TableEditor& table, int step) {
  const std::vector<std::string> list = ListOf(table);
  const auto at = std::ranges::find(list, table.OpenText()) - list.begin();
  const auto count = static_cast<std::ptrdiff_t>(list.size());
  const bool found = at < count;
  const auto next = step < 0 ? at - 1 : found ? at + 1 : 0;
  if (next < 0) return table.Write({});
  if (!found && step < 0) return;
  if (next < count) table.Write(list[static_cast<std::size_t>(next)]);
}

/** A key in the open field or list. */
void PressOpen(TableEditor& table, Key key) {
  const Entry kind = EntryOf(table);
  if (key.code == KeyCode::kEscape) return table.Escape();
  if (key.code == KeyCode::kUp || key.code == KeyCode::kDown)
    return StepInList(table, key.code == KeyCode::kUp ? -1 : 1);
  const std::string text = table.OpenText();
  if (key.code == KeyCode::kDelete && (kind != Entry::kText || !text.empty() || !IsBlank(table)))
    return table.Write({});
  if (kind == Entry::kList) {
    if (key.code == KeyCode::kCharacter) SeekEntry(table, key.character);
    return;
  }
  // A list entry that cannot be typed is edited as a whole: a part of it would be invalid.
  const bool whole = kind == Entry::kEditList && !TypeWhole(RuleOf(table), text);
  if (key.code == KeyCode::kBackspace) {
    if (!text.empty()) table.Write(std::string_view(text).substr(0, whole ? 0 : text.size() - 1));
  } else if (key.code == KeyCode::kCharacter) {
    Type(table, text, whole, key.character, false);
  }
}

}  // namespace

void PressKey(TableEditor& table, Key key) {
  if (!table.HasCurrent()) return;
  switch (key.code) {
    case KeyCode::kReturn:
      return Move(table, 1, 0);
    case KeyCode::kTab:
    case KeyCode::kRight:
      return Move(table, 0, 1);
    case KeyCode::kLeft:
      return Move(table, 0, -1);
    case KeyCode::kUp:
    case KeyCode::kDown:
      if (!table.open() || EntryOf(table) == Entry::kText)
        return Move(table, key.code == KeyCode::kUp ? -1 : 1, 0);
      break;
    default:
      break;
  }
  if (table.open()) return PressOpen(table, key);
  switch (EntryOf(table)) {
    case Entry::kReadOnly:
      return;
    case Entry::kText:
      return PressText(table, key);
    case Entry::kList:
    case Entry::kEditList:
      return PressList(table, key);
  }
}

bool PickEntry(TableEditor& table, std::string_view entry) {
  if (!table.HasCurrent()) return false;
  const Entry kind = EntryOf(table);
  if (kind != Entry::kList && kind != Entry::kEditList) return false;
  const std::vector<std::string> list = ListOf(table);
  if (!entry.empty() && std::ranges::find(list, entry) == list.end()) return false;
  table.Write(entry);
  table.LeaveCell();
  return true;
}

bool EditCell(TableEditor& table, std::string_view text) {
  std::string why;
  const std::optional<std::string> fitting =
      table.Fitting(table.current_row(), table.current_column(), text, why);
  if (fitting) table.Write(*fitting);
  return fitting.has_value();
}

}  // namespace tarvok::editing
