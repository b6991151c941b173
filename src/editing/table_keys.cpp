// Keys in a table.

#include <algorithm>
#include <utility>

#include "editing/table_editor.h"
#include "store/ini_text.h"

namespace tarvok::editing {

void TableEditor::Move(int rows, int columns) {
  const int row = rows == 0 ? row_ : NextInSight(row_ + rows, rows);
  GoTo(row > 0 ? row : row_, std::clamp(column_ + columns, 1, this->columns()));
}

void TableEditor::NextRow() {
  Move(1, 0);
}

void TableEditor::Press(Key key) {
  if (!HasCurrent()) return;
  switch (key.code) {
    case KeyCode::kReturn:
      return NextRow();
    case KeyCode::kTab:
      return Move(0, 1);
    case KeyCode::kLeft:
      return Move(0, -1);
    case KeyCode::kRight:
      return Move(0, 1);
    case KeyCode::kUp:
    case KeyCode::kDown:
      if (!open_ || EntryOf(row_, column_) == Entry::kText) return Move(key.code == KeyCode::kUp ? -1 : 1, 0);
      break;
    default:
      break;
  }
  if (open_) return PressOpen(key);
  switch (EntryOf(row_, column_)) {
    case Entry::kReadOnly:
      return;
    case Entry::kText:
      return PressText(key);
    case Entry::kList:
    case Entry::kEditList:
      return PressList(key);
  }
}

/** A key on a selected cell of text. */
void TableEditor::PressText(Key key) {
  const std::string& text = Cell(row_, column_);
  const EntryRule& rule = column(column_).rule;
  if (key.code == KeyCode::kBackspace) {
    if (!text.empty()) Write(std::string_view(text).substr(0, text.size() - 1));
  } else if (key.code == KeyCode::kDelete) {
    if (!IsBlank(row_, column_)) Write({});
  } else if (key.code == KeyCode::kCharacter && rule.first_replaces) {
    OpenWith(key.character);
  } else if (key.code == KeyCode::kCharacter) {
    const std::optional<std::string> typed = TypeCharacter(rule, text, false, key.character, true);
    if (typed) Write(*typed);
  }
}

/** A key on a selected cell with a list: it opens the list. */
void TableEditor::PressList(Key key) {
  if (key.code == KeyCode::kDelete) {
    if (!IsBlank(row_, column_)) Write({});
  } else if (key.code == KeyCode::kCharacter && EntryOf(row_, column_) == Entry::kEditList) {
    OpenWith(key.character);
  } else if (key.code != KeyCode::kEscape) {
    Open();
    if (key.code == KeyCode::kCharacter && open_) SeekEntry(key.character);
  }
}

/** Goes to the first entry that starts with what was typed since the list opened, or else with this key
 * alone. */
void TableEditor::SeekEntry(char key) {
  const std::vector<std::string> list = ListOf(row_, column_);
  for (const std::string& sought : {open_->sought + key, std::string(1, key)}) {
    const std::string folded = FoldName(sought);
    const auto found = std::find_if(list.begin(), list.end(), [&](const std::string& entry) {
      return FoldName(entry).starts_with(folded);
    });
    if (found == list.end()) continue;
    open_->sought = sought;
    return Write(*found);
  }
}

/** Opens the field with the key, or empty if the key is not accepted; the cell then keeps its text until
 * something is typed. */
void TableEditor::OpenWith(char key) {
  const std::optional<std::string> typed = TypeCharacter(column(column_).rule, {}, false, key, true);
  open_ = OpenField{.before = row(row_)};
  if (typed) Write(*typed);
}

/** A key in the open field or list. */
void TableEditor::PressOpen(Key key) {
  const Entry kind = EntryOf(row_, column_);
  if (key.code == KeyCode::kEscape) {
    if (open_->touched) PutBack(open_->before);
    return LeaveCell();
  }
  if (key.code == KeyCode::kUp || key.code == KeyCode::kDown) {
    const std::vector<std::string> list = ListOf(row_, column_);
    const auto at = std::find(list.begin(), list.end(), open_->text) - list.begin();
    const auto last = static_cast<std::ptrdiff_t>(list.size()) - 1;
    const bool found = at <= last;
    const auto next = key.code == KeyCode::kUp ? at - 1 : found ? at + 1 : 0;
    if (next < 0) return Write({});
    if (!found && key.code == KeyCode::kUp) return;
    if (next <= last) Write(list[static_cast<std::size_t>(next)]);
    return;
  }
  if (key.code == KeyCode::kDelete &&
      (kind != Entry::kText || !open_->text.empty() || !IsBlank(row_, column_)))
    return Write({});
  if (kind == Entry::kList) {
    if (key.code == KeyCode::kCharacter) SeekEntry(key.character);
    return;
  }
  const std::string& text = open_->text;
  const EntryRule& rule = column(column_).rule;
  // A list entry that cannot be typed is edited as a whole: a part of it would be invalid.
  const bool whole = kind == Entry::kEditList && !TypeWhole(rule, text);
  if (key.code == KeyCode::kBackspace) {
    if (!text.empty()) Write(std::string(text, 0, whole ? 0 : text.size() - 1));
  } else if (key.code == KeyCode::kCharacter) {
    const std::optional<std::string> typed = TypeCharacter(rule, text, whole, key.character, false);
    if (typed) Write(*typed);
  }
}

}  // namespace tarvok::editing
