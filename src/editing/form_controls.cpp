#include "editing/form_controls.h"

#include <algorithm>
#include <utility>

#include "store/number_text.h"

namespace tarvok::editing {

Control* FormControls::Find(const ControlId& id) {
  // Numbers are compared first: a form with a thousand controls of one name is searched often.
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control& control) {
    return control.id.column == id.column && control.id.index == id.index && control.id.name == id.name;
  });
  return found == controls_.end() ? nullptr : &*found;
}

void FormControls::Focus(Control& control) {
  if (!control.enabled || !control.visible) return;
  focus_ = &control;
  if (control.entered) control.entered();
  Settle();
}

void FormControls::Press(Key key) {
  if (focus_ == nullptr) {
    if (table() != nullptr) table()->Press(key);
    Settle();
    return;
  }
  Control& box = *focus_;
  if (!box.enabled || !box.visible) return;
  if (box.key && box.key(key)) return Settle();
  if (box.kind == ControlKind::kText) {
    std::string text = box.text;
    if (key.code == KeyCode::kCharacter) {
      const auto typed = TypeCharacter(box.rule, box.text, box.selected, key.character, false);
      if (typed) box.selected = false;  // even if the same text was typed over it
      text = typed.value_or(box.text);
    } else if (key.code == KeyCode::kBackspace && !text.empty()) {
      box.selected ? text.clear() : text.pop_back();
    } else if (key.code == KeyCode::kDelete && box.selected) {
      text.clear();
    }
    if (text != box.text) {
      box.selected = false;
      box.text = std::move(text);
      Acted(box);
    }
  } else if ((key.code == KeyCode::kReturn && box.kind == ControlKind::kButton) ||
             (key.code == KeyCode::kCharacter && key.character == ' ')) {
    return Click(box);
  } else if (!box.entries.empty() && (key.code == KeyCode::kUp || key.code == KeyCode::kDown)) {
    const int step = key.code == KeyCode::kUp ? -1 : 1;
    return ChooseEntry(box, std::clamp(box.current + step, 0, static_cast<int>(box.entries.size()) - 1));
  }
  Settle();
}

void FormControls::Click(Control& control) {
  if (!control.enabled || !control.visible) return;
  if (control.kind == ControlKind::kCheck) return Turn(control, !control.on);
  if (control.kind == ControlKind::kOption) return Turn(control, true);
  if (control.changed) control.changed();
  Settle();
}

void FormControls::ChooseEntry(Control& control, int entry) {
  if (!control.enabled || !control.visible) return;
  if (control.kind == ControlKind::kScroll) {
    control.current = std::clamp(entry, control.low, control.high);
  } else if (entry >= static_cast<int>(control.entries.size())) {
    return;
  } else {
    control.current = std::max(entry, kNoIndex);
    control.chosen.clear();
    if (entry >= 0) control.chosen.push_back(entry);
  }
  Acted(control);
}

void FormControls::ChooseEntries(Control& control, std::vector<int> entries) {
  if (!control.enabled || !control.visible) return;
  std::sort(entries.begin(), entries.end());
  control.current = entries.empty() ? kNoIndex : entries.back();
  control.chosen = std::move(entries);
  Acted(control);
}

void FormControls::Turn(Control& control, bool on) {
  if (!control.enabled || !control.visible) return;
  if (control.kind == ControlKind::kOption) {
    if (!on) return;
    for (Control& other : controls_) {
      if (other.kind == ControlKind::kOption && other.id.name == control.id.name &&
          other.group == control.group)
        other.on = false;
    }
  }
  control.on = on;
  Acted(control);
}

bool FormControls::EditText(Control& control, std::string_view text) {
  if (!control.enabled || !control.visible) return false;
  const std::optional<std::string> typed = TypeWhole(control.rule, text);
  if (!typed) return false;
  if (*typed == control.text) return true;
  control.text = *typed;
  control.selected = false;
  Acted(control);
  return true;
}

void FormControls::ShortenText(Control& control, std::string_view text) {
  if (!control.enabled || !control.visible || text.size() >= control.text.size()) return;
  control.text = text;
  control.selected = false;
  Acted(control);
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

Control& FormControls::Add(Control control) {
  controls_.push_back(std::move(control));
  return controls_.back();
}

Control& FormControls::AddButton(std::string name, std::string caption, std::function<void()> clicked) {
  return Add({.id = {std::move(name)},
              .kind = ControlKind::kButton,
              .caption = std::move(caption),
              .data = false,
              .changed = std::move(clicked)});
}

Control& FormControls::AddMenu(std::string name, std::string caption, std::function<void()> clicked) {
  Control& entry = AddButton(std::move(name), std::move(caption), std::move(clicked));
  entry.kind = ControlKind::kMenu;
  return entry;
}

Control& FormControls::AddText(ControlId id, std::string caption, EntryRule rule) {
  return Add({.id = std::move(id), .kind = ControlKind::kText, .caption = std::move(caption), .rule = rule});
}

Control& FormControls::AddCheck(ControlId id, std::string caption) {
  return Add({.id = std::move(id), .kind = ControlKind::kCheck, .caption = std::move(caption)});
}

Control& FormControls::AddOption(ControlId id, std::string caption, int group) {
  return Add(
      {.id = std::move(id), .kind = ControlKind::kOption, .caption = std::move(caption), .group = group});
}

Control& FormControls::AddList(ControlId id, std::string caption, std::vector<std::string> entries) {
  return Add({.id = std::move(id),
              .kind = ControlKind::kList,
              .caption = std::move(caption),
              .entries = std::move(entries),
              .data = false});
}

Control& FormControls::AddCombo(ControlId id, std::string caption, std::vector<std::string> entries) {
  return Add({.id = std::move(id),
              .kind = ControlKind::kCombo,
              .caption = std::move(caption),
              .entries = std::move(entries)});
}

Control& FormControls::AddLabel(ControlId id, std::string text) {
  return Add({.id = std::move(id), .kind = ControlKind::kLabel, .text = std::move(text), .data = false});
}

std::vector<std::string> NumberedEntries(int first, int last, int width, std::string_view prefix) {
  std::vector<std::string> entries;
  for (int n = first; n <= last; ++n) entries.push_back(std::string(prefix) + Padded(n, width));
  return entries;
}

}  // namespace tarvok::editing
