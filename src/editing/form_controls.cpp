#include "editing/form_controls.h"

#include <algorithm>
#include <utility>

#include "editing/table_operations.h"
#include "store/number_text.h"

namespace tarvok::editing {

Control* FormControls::Find(const ControlId& id) {
  // Numbers are compared first: a form with a thousand controls of one name is searched often.
  const auto found = std::ranges::find_if(controls_, [&](const auto& control) {
    return control->id.column == id.column && control->id.index == id.index && control->id.name == id.name;
  });
  return found == controls_.end() ? nullptr : found->get();
}

void FormControls::Focus(Control& control) {
  if (!control.usable()) return;
  focus_ = &control;
  if (control.entered) control.entered();
  Settle();
}

void FormControls::Press(Key key) {
  if (focus_ == nullptr) {
    if (table() != nullptr) PressKey(*table(), key);
    return Settle();
  }
  if (!focus_->usable()) return;
  if (focus_->key && focus_->key(key)) return Settle();
  const bool space = key.code == KeyCode::kCharacter && key.character == ' ';
  const int step = key.code == KeyCode::kUp ? -1 : key.code == KeyCode::kDown ? 1 : 0;
  std::visit(Overloaded{[&](TextBox* box) { TypeInto(*box, key); },
                        [&](Button* button) {
                          if (space || (key.code == KeyCode::kReturn && !button->in_menu)) Click(*button);
                        },
                        [&](EntryList* list) {
                          const int last = static_cast<int>(list->entries.size()) - 1;
                          if (space) Click(*list);
                          if (step != 0 && last >= 0)
                            ChooseEntry(*list, std::clamp(list->current + step, 0, last));
                        },
                        [&](Control* other) {
                          if (space) Click(*other);
                        }},
             focus_->Any());
  Settle();
}

void FormControls::TypeInto(TextBox& box, Key key) {
  std::string text = box.text;
  if (key.code == KeyCode::kCharacter) {
    const auto typed = TypeCharacter(box.rule, box.text, box.selected, key.character, false);
    if (!typed) return;
    box.selected = false;  // even if the same text was typed over it
    text = *typed;
  } else if (key.code == KeyCode::kBackspace && !text.empty()) {
    box.selected ? text.clear() : text.pop_back();
  } else if (key.code == KeyCode::kDelete && box.selected) {
    text.clear();
  }
  if (text != box.text) PutText(box, text);
}

void FormControls::PutText(TextBox& box, std::string_view text) {
  box.text = text;
  box.selected = false;
  Acted(box);
}

void FormControls::Click(Control& control) {
  if (!control.usable()) return;
  std::visit(Overloaded{[this](CheckBox* box) { Turn(*box, !box->on); },
                        [this](Option* option) { Turn(*option, true); },
                        [this](Control* other) {
                          if (other->changed) other->changed();
                          Settle();
                        }},
             control.Any());
}

void FormControls::ChooseEntry(Control& control, int entry) {
  if (!control.usable()) return;
  const bool exists = std::visit(Overloaded{[&](ScrollBar* bar) {
                                              bar->current = std::clamp(entry, 0, bar->high);
                                              return true;
                                            },
                                            [&](EntryList* list) {
                                              if (entry >= static_cast<int>(list->entries.size()))
                                                return false;
                                              list->Take(std::max(entry, kNoIndex));
                                              return true;
                                            },
                                            [&](Control*) { return entry < 0; }},
                                 control.Any());
  if (exists) Acted(control);
}

void FormControls::ChooseEntries(ListBox& list, std::vector<int> entries) {
  if (!list.usable()) return;
  std::sort(entries.begin(), entries.end());
  list.current = entries.empty() ? kNoIndex : entries.back();
  list.chosen = std::move(entries);
  Acted(list);
}

void FormControls::Turn(Switch& control, bool on) {
  const auto option = std::ranges::find(options_, &control);
  if (!control.usable() || (option != options_.end() && !on)) return;
  for (Option* other : options_) {
    if (option != options_.end() && other->id.name == control.id.name && other->group == (*option)->group)
      other->on = false;
  }
  control.on = on;
  Acted(control);
}

bool FormControls::EditText(TextBox& box, std::string_view text) {
  if (!box.usable()) return false;
  const std::optional<std::string> typed = TypeWhole(box.rule, text);
  if (typed && *typed != box.text) PutText(box, *typed);
  return typed.has_value();
}

void FormControls::ShortenText(TextBox& box, std::string_view text) {
  if (box.usable() && text.size() < box.text.size()) PutText(box, text);
}

void FormControls::Acted(Control& control) {
  if (control.data) MarkChanged();
  if (control.changed) control.changed();
  Settle();
}

void FormControls::Settle() {
  if (dialog_ != nullptr && std::exchange(dialog_closed_, false)) dialog_.reset();
  if (shown_changed) shown_changed();
}

Button& FormControls::AddButton(std::string name, std::string caption, std::function<void()> clicked) {
  auto& button = Add<Button>({std::move(name)}, std::move(caption));
  button.changed = std::move(clicked);
  return button;
}

Button& FormControls::AddMenu(std::string name, std::string caption, std::function<void()> clicked) {
  Button& entry = AddButton(std::move(name), std::move(caption), std::move(clicked));
  entry.in_menu = true;
  return entry;
}

TextBox& FormControls::AddText(ControlId id, std::string caption, EntryRule rule) {
  auto& box = Add<TextBox>(std::move(id), std::move(caption));
  box.rule = rule;
  return box;
}

Option& FormControls::AddOption(ControlId id, std::string caption, int group) {
  auto& option = Add<Option>(std::move(id), std::move(caption));
  option.group = group;
  options_.push_back(&option);
  return option;
}

ScrollBar& FormControls::AddScrollBar(ControlId id, std::string caption, int high) {
  auto& bar = Add<ScrollBar>(std::move(id), std::move(caption));
  bar.high = high;
  return bar;
}

Label& FormControls::AddLabel(ControlId id, std::string text) {
  auto& label = Add<Label>(std::move(id), {});
  label.text = std::move(text);
  return label;
}

std::vector<std::string> NumberedEntries(int first, int last, int width, std::string_view prefix) {
  std::vector<std::string> entries;
  for (int n = first; n <= last; ++n) entries.push_back(std::string(prefix) + Padded(n, width));
  return entries;
}

}  // namespace tarvok::editing
