#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
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

struct Button;
struct Label;
struct TextBox;
struct CheckBox;
struct Option;
struct ListBox;
struct ComboBox;
struct TabBar;
struct ScrollBar;
/** A control by its kind, for `std::visit` with `Overloaded`. */
using AnyControl =
    std::variant<Button*, Label*, TextBox*, CheckBox*, Option*, ListBox*, ComboBox*, TabBar*, ScrollBar*>;

/** Calls the lambda that fits best: one for a base such as `Control*` takes the kinds that have none. */
template <typename... Lambdas>
struct Overloaded : Lambdas... {
  using Lambdas::operator()...;
};
template <typename... Lambdas>
Overloaded(Lambdas...) -> Overloaded<Lambdas...>;

/** A control of a form: its state and its handlers. Independent of any view. */
struct Control {
  ControlId id;
  std::string caption;  // with "&" before the mnemonic
  bool enabled = true;
  bool visible = true;
  bool data = true;               // changing it changes the project
  std::function<void()> changed;  // called after a click or a change by the user
  std::function<void()> entered;  // called after it gets the focus
  /** Called before the control handles a key; true if the key was consumed. */
  std::function<bool(Key)> key;

  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;
  virtual AnyControl Any() = 0;
  /** The user can operate it. */
  bool usable() const { return enabled && visible; }
};

struct Button : Control {
  bool in_menu = false;  // a menu entry

  Button() { data = false; }
  AnyControl Any() override { return this; }
};

struct Label : Control {
  std::string text;

  Label() { data = false; }
  AnyControl Any() override { return this; }
};

/** A box to type in. */
struct TextBox : Control {
  std::string text;
  bool selected = false;  // the whole text is selected: the next key replaces it
  EntryRule rule;

  AnyControl Any() override { return this; }
};

/** A check box or an option. */
struct Switch : Control {
  bool on = false;
};

struct CheckBox : Switch {
  AnyControl Any() override { return this; }
};

/** Of the options with the same name and `group`, one is on. */
struct Option : Switch {
  int group = 0;

  AnyControl Any() override { return this; }
};

/** A control with entries, of which one is chosen. */
struct EntryList : Control {
  std::vector<std::string> entries;
  int current = kNoIndex;  // the chosen entry, from 0

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
  /** Makes this the only chosen entry; kNoIndex: none. */
  virtual void Take(int entry) { current = entry; }
};

struct ListBox : EntryList {
  std::vector<int> chosen;  // all chosen entries, in order
  bool many = false;        // several entries can be chosen

  ListBox() { data = false; }
  AnyControl Any() override { return this; }
  void Take(int entry) override {
    current = entry;
    chosen.assign(entry >= 0 ? 1 : 0, entry);
  }
};

/** A closed list that shows its current entry. */
struct ComboBox : EntryList {
  AnyControl Any() override { return this; }
};

/** One tab is always chosen. */
struct TabBar : EntryList {
  TabBar() {
    data = false;
    current = 0;
  }
  AnyControl Any() override { return this; }
  void Take(int entry) override { current = entry < 0 ? current : entry; }
};

struct ScrollBar : Control {
  int current = 0;
  int high = 0;  // its highest value; the lowest is 0

  ScrollBar() { data = false; }
  AnyControl Any() override { return this; }
};

}  // namespace tarvok::editing
