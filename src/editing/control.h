#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/entry_rule.h"
#include "editing/key.h"
#include "editing/uses.h"

namespace tarvok::editing {

inline constexpr int kNoIndex = -1;

/** The name of a control, with an index if it is one of several: `Check1(3)`, `cell(2,17)`. */
struct ControlId {
  std::string name;
  int index = kNoIndex;
  int column = kNoIndex;

  bool operator==(const ControlId&) const = default;
};

enum class ControlKind {
  kButton,
  kMenu,  // a menu entry
  kText,  // a box to type in
  kCheck,
  kOption,  // of the options with the same name and `group`, one is on
  kList,    // a list box
  kCombo,   // a closed list that shows its current entry
  kTabs,
  kScroll,  // `current` is its value, from `low` to `high`
  kLabel,
};

/** A control of a form: its state and its handlers. Independent of any view. */
struct Control {
  ControlId id;
  ControlKind kind = ControlKind::kLabel;
  std::string caption;  // with "&" before the mnemonic
  std::string tip;
  bool enabled = true;
  bool visible = true;

  std::string text;       // of a box or a label
  bool selected = false;  // the whole text of a box is selected: the next key replaces it
  EntryRule rule = {};    // of a box

  std::vector<std::string> entries;  // of a list, a combo or tabs
  int current = kNoIndex;            // the chosen entry, from 0; the value of a scroll bar
  std::vector<int> chosen;           // of a multiple-choice list: all chosen entries, in order
  bool many = false;

  bool on = false;  // of a check box or an option
  int group = 0;    // which options of one name belong together
  int low = 0;      // of a scroll bar
  int high = 0;

  bool data = true;               // changing it changes the project
  std::function<void()> changed;  // called after a click or a change by the user
  std::function<void()> entered;  // called after it gets the focus
  /** Called before the box handles a key; true if the key was consumed. */
  std::function<bool(Key)> key;

  /** The chosen entry; "" if none. */
  std::string_view Chosen() const {
    return current >= 0 && current < static_cast<int>(entries.size())
               ? std::string_view(entries[static_cast<std::size_t>(current)])
               : std::string_view();
  }
  /** Chooses the entry with that text; chooses none if there is no such entry. */
  void Choose(std::string_view entry) {
    current = kNoIndex;
    for (std::size_t i = 0; i < entries.size() && current == kNoIndex; ++i) {
      if (entries[i] == entry) current = static_cast<int>(i);
    }
  }
  /** The same, but adds a missing entry to the list, so that a stored value is shown and a save keeps it. */
  void ChooseOrJoin(std::string_view entry) {
    Choose(entry);
    if (current != kNoIndex) return;
    current = static_cast<int>(entries.size());
    entries.emplace_back(entry);
  }
};

}  // namespace tarvok::editing
