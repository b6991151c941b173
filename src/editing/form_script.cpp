#include "editing/form_script.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <span>
#include <utility>

#include "editing/table_operations.h"
#include "store/ini_text.h"
#include "store/number_text.h"
#include "store/one_line.h"

namespace tarvok::editing {
namespace {

constexpr std::string_view kGrid = "mgTest";

/** The next word, or the text between two quotes; `rest` becomes what follows it and a blank. */
std::string_view NextWord(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));  // a text may end with blanks
  std::size_t end = rest.find(' ');
  std::string_view word = rest.substr(0, end);
  if (!rest.empty() && rest.front() == '"') {
    const std::size_t close = rest.find('"', 1);
    if (close != std::string_view::npos) {
      word = rest.substr(1, close - 1);
      end = close + 1;
    }
  }
  rest = end >= rest.size() ? std::string_view() : rest.substr(end);
  if (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
  return word;
}

/** Removes a pair of quotes around the whole text. */
std::string_view Unquoted(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

bool IsNumber(std::string_view word) {
  return !word.empty() && word.size() < 9 && word.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
    if (next == 't' || next == 'n' || next == '\\') {
      plain += next == 't' ? '\t' : next == 'n' ? '\n' : '\\';
      ++i;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

int RowOf(std::string_view word) {
  return IsNumber(word) ? static_cast<int>(Val(word)) : 0;
}

int ColumnOf(const TableEditor& table, std::string_view word) {
  for (int column = 1; column <= table.columns(); ++column) {
    if (table.column(column).title == word) return column;
  }
  return RowOf(word);
}

/** `Name`, `Name(3)`, `Name(2,17)`. */
std::optional<ControlId> ParseControl(std::string_view word) {
  const std::size_t open = word.find('(');
  if (open == std::string_view::npos) return ControlId{std::string(word)};
  if (word.back() != ')') return std::nullopt;
  const std::string_view inside = word.substr(open + 1, word.size() - open - 2);
  const std::size_t comma = inside.find(',');
  const std::string_view first = Trim(inside.substr(0, comma));
  const std::string_view second =
      comma == std::string_view::npos ? std::string_view() : Trim(inside.substr(comma + 1));
  if (!IsNumber(first) || (comma != std::string_view::npos && !IsNumber(second))) return std::nullopt;
  return ControlId{std::string(word.substr(0, open)), RowOf(first),
                   second.empty() ? kNoIndex : RowOf(second)};
}

/** The entries of a list; none for another control. */
std::span<const std::string> EntriesOf(Control& control) {
  return std::visit(Overloaded{[](EntryList* list) { return std::span<const std::string>(list->entries); },
                               [](Control*) { return std::span<const std::string>(); }},
                    control.Any());
}

/** The entries of a control over the cells, by its name, in the first column that uses it. */
std::vector<std::string> OverlayEntries(const TableEditor& table, std::string_view overlay) {
  const auto has = [&](int column) { return table.column(column).overlay == overlay; };
  if (has(table.current_column())) return table.ListOf(table.current_row(), table.current_column());
  for (int column = 1; column <= table.columns(); ++column) {
    if (has(column)) return table.ListOf(table.current_row(), column);
  }
  return {};
}

/** What `value` prints. */
std::string ValueOf(Control& control) {
  return std::visit(
      Overloaded{[](TextBox* box) { return box->text; }, [](Label* label) { return label->text; },
                 [](Switch* box) { return std::string(box->on ? "1" : "0"); },
                 [](ScrollBar* bar) { return std::to_string(bar->current); },
                 [](TabBar* tabs) { return std::to_string(tabs->current); },
                 [](EntryList* list) { return std::string(list->Chosen()); },
                 [](Control* other) { return other->caption; }},
      control.Any());
}

/** nullopt for a word that means neither. */
std::optional<bool> OnOrOff(std::string_view value) {
  static constexpr std::pair<std::string_view, bool> kWords[] = {
      {"1", true},  {"on", true},   {"true", true},   {"yes", true},
      {"0", false}, {"off", false}, {"false", false}, {"no", false}};
  for (const auto& [word, on] : kWords) {
    if (SameName(value, word)) return on;
  }
  return std::nullopt;
}

}  // namespace

void ScriptedQuestions::Box(std::string_view text, bool /*critical*/) {
  print_("box: " + InOneLine(text));
}

bool ScriptedQuestions::NextAnswer(std::string_view question, bool yes) {
  if (!answers_.empty()) {
    yes = answers_.front();
    answers_.pop_front();
  }
  print_("ask: " + InOneLine(question) + (yes ? " -> Yes" : " -> No"));
  return yes;
}

std::string FormScript::Run(std::string_view line) {
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
  struct Command {
    std::string_view word;
    std::string (FormScript::*run)(std::string_view rest);
  };
  static constexpr Command kWords[] = {
      {"go", &FormScript::Go},       {"select", &FormScript::Select}, {"type", &FormScript::Type},
      {"press", &FormScript::Press}, {"pick", &FormScript::Pick},     {"focus", &FormScript::Focus},
      {"set", &FormScript::Set},     {"click", &FormScript::Click},   {"paste", &FormScript::Paste},
      {"copy", &FormScript::Copy},   {"cut", &FormScript::Cut},       {"answer", &FormScript::Answer},
      {"list", &FormScript::List},   {"show", &FormScript::Show},     {"value", &FormScript::Value},
  };
  std::string_view rest = line;
  const std::string_view word = NextWord(rest);
  if (word.empty() || word.front() == '#') return {};
  const auto* found = std::find_if(std::begin(kWords), std::end(kWords),
                                   [&](const Command& command) { return command.word == word; });
  if (found == std::end(kWords)) return "unknown command " + std::string(word);
  if (form_.closed()) return "the form is closed";
  std::string error = (this->*found->run)(rest);
  form_.Settle();
  return error;
}

FormControls& FormScript::Front() {
  return form_.dialog() != nullptr ? *form_.dialog() : form_;
}

Control* FormScript::FindControl(std::string_view& rest, std::string& error) {
  const std::string_view word = NextWord(rest);
  const std::optional<ControlId> id = ParseControl(word);
  Control* control = id ? Front().Find(*id) : nullptr;
  if (control == nullptr) error = "unknown control " + std::string(word);
  return control;
}

std::string FormScript::Go(std::string_view rest) {
  TableEditor* table = Front().table();
  if (table == nullptr) return "the form has no table";
  const std::string_view row = NextWord(rest);
  const std::string_view column = NextWord(rest);
  if (!table->GoTo(RowOf(row), ColumnOf(*table, column)))
    return "unknown cell " + std::string(row) + " " + std::string(column);
  Front().FocusTable();
  return {};
}

std::string FormScript::Select(std::string_view rest) {
  TableEditor* table = Front().table();
  if (table == nullptr) return "the form has no table";
  const int top = RowOf(NextWord(rest));
  const int left = ColumnOf(*table, NextWord(rest));
  const int bottom = RowOf(NextWord(rest));
  const int right = ColumnOf(*table, NextWord(rest));
  const auto inside = [&](int row, int column) {
    return row >= 1 && row <= table->rows() && column >= 1 && column <= table->columns();
  };
  if (!inside(top, left) || !inside(bottom, right)) return "unknown cell";
  // The top left corner becomes the current cell.
  table->GoTo(std::max(top, bottom), std::max(left, right));
  table->SelectTo(std::min(top, bottom), std::min(left, right));
  Front().FocusTable();
  return {};
}

std::string FormScript::Type(std::string_view rest) {
  for (const char c : Unquoted(rest)) Front().Press(Key::Of(c));
  return {};
}

std::string FormScript::Press(std::string_view rest) {
  static constexpr std::pair<std::string_view, KeyCode> kKeys[] = {
      {"Backspace", KeyCode::kBackspace},
      {"Delete", KeyCode::kDelete},
      {"Return", KeyCode::kReturn},
      {"Enter", KeyCode::kReturn},
      {"Escape", KeyCode::kEscape},
      {"Tab", KeyCode::kTab},
      {"Up", KeyCode::kUp},
      {"Down", KeyCode::kDown},
      {"Left", KeyCode::kLeft},
      {"Right", KeyCode::kRight},
  };
  const std::string_view word = NextWord(rest);
  for (const auto& [name, code] : kKeys) {
    if (!SameName(name, word)) continue;
    Front().Press({code});
    return {};
  }
  return "unknown key " + std::string(word);
}

std::string FormScript::Pick(std::string_view rest) {
  const std::string_view entry = Unquoted(rest);
  Control* control = Front().focus();
  if (control == nullptr) {
    TableEditor* table = Front().table();
    return table != nullptr && PickEntry(*table, entry) ? "" : "no entry " + std::string(entry);
  }
  const std::span<const std::string> entries = EntriesOf(*control);
  // The line has lost blanks at the end of an entry.
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const std::string& shown) {
    return shown == entry || (!entry.empty() && Trim(shown) == entry);
  });
  if (found == entries.end() && !entry.empty()) return "no entry " + std::string(entry);
  Front().ChooseEntry(*control,
                      found == entries.end() ? kNoIndex : static_cast<int>(found - entries.begin()));
  return {};
}

bool FormScript::IsOverTable(std::string_view name) {
  const TableEditor* table = Front().table();
  if (table == nullptr) return false;
  bool found = Trim(name) == kGrid;
  for (int column = 1; column <= table->columns() && !found; ++column) {
    found = !table->column(column).overlay.empty() && table->column(column).overlay == Trim(name);
  }
  return found;
}

std::string FormScript::Focus(std::string_view rest) {
  if (IsOverTable(rest)) {
    Front().FocusTable();
    return {};
  }
  std::string error;
  Control* control = FindControl(rest, error);
  if (control != nullptr) Front().Focus(*control);
  return error;
}

std::string FormScript::Set(std::string_view rest) {
  std::string error;
  Control* control = FindControl(rest, error);
  if (control == nullptr) return error;
  const std::string_view value = Unquoted(rest);
  const std::span<const std::string> entries = EntriesOf(*control);
  const auto found = std::find(entries.begin(), entries.end(), value);
  const int by_text = found == entries.end() ? kNoIndex : static_cast<int>(found - entries.begin());
  const bool in_list = IsNumber(value) && RowOf(value) < static_cast<int>(entries.size());
  const auto choose = [&](EntryList* list, bool exists, int entry) {
    if (exists) Front().ChooseEntry(*list, entry);
    return exists ? "" : "no entry " + std::string(value);
  };
  return std::visit(
      Overloaded{[&](Switch* box) -> std::string {
                   if (!OnOrOff(value)) return "neither on nor off: " + std::string(value);
                   Front().Turn(*box, *OnOrOff(value));
                   return {};
                 },
                 [&](ScrollBar* bar) -> std::string {
                   if (!IsNumber(value)) return "no value " + std::string(value);
                   Front().ChooseEntry(*bar, RowOf(value));
                   return {};
                 },
                 [&](TextBox* box) {
                   return Front().EditText(*box, value) ? ""
                                                        : "the control does not accept " + std::string(value);
                 },
                 [&](ComboBox* list) { return choose(list, by_text != kNoIndex || value.empty(), by_text); },
                 [&](EntryList* list) {
                   return choose(list, in_list || by_text != kNoIndex, in_list ? RowOf(value) : by_text);
                 },
                 [](Control*) { return std::string("the control can't be set"); }},
      control->Any());
}

std::string FormScript::Click(std::string_view rest) {
  std::string_view again = rest;
  std::string error;
  if (Control* control = FindControl(rest, error); control != nullptr) {
    Front().Click(*control);
    return {};
  }
  const std::optional<ControlId> id = ParseControl(NextWord(again));
  Control* list = id ? Front().Find({id->name}) : nullptr;
  if (list == nullptr || id->index >= static_cast<int>(EntriesOf(*list).size())) return error;
  Front().ChooseEntry(*list, id->index);
  return {};
}

std::string FormScript::ClickMenu(const char* name) {
  Control* entry = Front().Find({name});
  if (entry == nullptr) return "the form has no table";
  Front().Click(*entry);
  return {};
}

std::string FormScript::Paste(std::string_view rest) {
  TableEditor* table = form_.table();
  if (Front().focus() != nullptr) {
    for (const char c : Unescaped(Unquoted(rest))) Front().Press(Key::Of(c));
    return {};
  }
  if (table != nullptr && !rest.empty()) table->clipboard = Unescaped(Unquoted(rest));
  return ClickMenu("mnu_paste");
}

std::string FormScript::Copy(std::string_view /*rest*/) {
  return ClickMenu("mnu_copy");
}

std::string FormScript::Cut(std::string_view /*rest*/) {
  return ClickMenu("mnu_cut");
}

std::string FormScript::Answer(std::string_view rest) {
  for (std::string_view word = NextWord(rest); !word.empty(); word = NextWord(rest)) {
    if (!SameName(word, "Yes") && !SameName(word, "No")) return "unknown answer " + std::string(word);
    questions_.Answer(SameName(word, "Yes"));
  }
  return {};
}

std::string FormScript::List(std::string_view rest) {
  std::string_view name = rest;
  std::string error;
  std::vector<std::string> entries;
  if (Control* control = FindControl(rest, error); control != nullptr) {
    const std::span<const std::string> listed = EntriesOf(*control);
    entries.assign(listed.begin(), listed.end());
  } else {
    if (Front().table() != nullptr) entries = OverlayEntries(*Front().table(), Trim(name));
    if (entries.empty() && !IsOverTable(name)) return error;
  }
  for (const std::string& entry : entries) questions_.PrintLine(entry);
  return {};
}

std::string FormScript::Show(std::string_view /*rest*/) {
  const TableEditor* table = Front().table();
  if (table == nullptr) return "the form has no table";
  std::string line;
  for (int column = 1; column <= table->columns(); ++column) line += "\t" + table->column(column).title;
  questions_.PrintLine(line);
  for (int row = 1; row <= table->rows(); ++row) {
    line = std::to_string(row);
    for (int column = 1; column <= table->columns(); ++column) line += "\t" + table->Cell(row, column);
    questions_.PrintLine(line);
  }
  return {};
}

std::string FormScript::Value(std::string_view rest) {
  if (IsOverTable(rest)) {
    const TableEditor& table = *Front().table();
    questions_.PrintLine(table.open() ? table.OpenText()
                                      : table.Cell(table.current_row(), table.current_column()));
    return {};
  }
  std::string error;
  Control* control = FindControl(rest, error);
  if (control != nullptr) questions_.PrintLine(ValueOf(*control));
  return error;
}

}  // namespace tarvok::editing
