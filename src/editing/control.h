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

/** A control by its name, with an index where it is one of several: `Check1(3)`, `cell(2,17)`. */
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
  kOption,  // one of the options with the same `group` and name is on
  kList,    // a list box
  kCombo,   // a closed list that shows its current entry
  kTabs,
  kScroll,  // `current` is its value, from `low` to `high`
  kLabel,
};

/** A control of a form: its state, and what the form does when a person changed it. No view is known here. */
struct Control {
  ControlId id;
  ControlKind kind = ControlKind::kLabel;
  std::string caption;  // with the mnemonic behind "&"
  std::string tip;
  bool enabled = true;
  bool visible = true;

  std::string text;       // of a box or a label
  bool selected = false;  // the text of a box is selected whole: the next key replaces it
  EntryRule rule = {};    // of a box

  std::vector<std::string> entries;  // of a list, a combo or tabs
  int current = kNoIndex;            // the entry that is chosen, from 0; the value of a scroll bar
  std::vector<int> chosen;           // of a list that lets one choose many: all of them, in order
  bool many = false;

  bool on = false;  // of a check box or an option
  int group = 0;    // options of one name stand in groups
  int low = 0;      // of a scroll bar
  int high = 0;

  bool data = true;               // a change of it is a change of the project
  std::function<void()> changed;  // behind a click or a change by a person
  std::function<void()> entered;  // behind getting the focus
  /** Sees a key before the box does; true if it has used it up. */
  std::function<bool(Key)> key;

  /** The entry that is chosen, "" for none. */
  std::string_view Chosen() const {
    return current >= 0 && current < static_cast<int>(entries.size())
               ? std::string_view(entries[static_cast<std::size_t>(current)])
               : std::string_view();
  }
  /** Chooses the entry with that text; none if there is no such entry. */
  void Choose(std::string_view entry) {
    current = kNoIndex;
    for (std::size_t i = 0; i < entries.size() && current == kNoIndex; ++i) {
      if (entries[i] == entry) current = static_cast<int>(i);
    }
  }
  /** The same; an entry that is not there joins the list, so that a stored value is shown and a save does not
   * lose it. */
  void ChooseOrJoin(std::string_view entry) {
    Choose(entry);
    if (current != kNoIndex) return;
    current = static_cast<int>(entries.size());
    entries.emplace_back(entry);
  }
};

}  // namespace tarvok::editing
