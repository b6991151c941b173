#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editing/control.h"
#include "editing/layout.h"
#include "editing/table_editor.h"
#include "editing/uses.h"

namespace tarvok::editing {

/**
 * A form as a set of named controls, one of which, or the table, has the focus. A window, a key script or a
 * test calls it for each user action; the handlers of the controls do the rest.
 */
class FormControls {
 public:
  FormControls() = default;
  virtual ~FormControls() = default;
  FormControls(const FormControls&) = delete;
  FormControls& operator=(const FormControls&) = delete;

  virtual std::string_view title() const = 0;

  /** nullptr if the form has no such control. */
  Control* Find(const ControlId& id);
  /** The same for a control that is of this kind if the form has it. */
  template <typename Kind>
  Kind* Find(const ControlId& id) {
    return static_cast<Kind*>(Find(id));
  }
  const FormLayout& layout() const { return layout_; }
  /** The form's table; nullptr if it has none. */
  virtual TableEditor* table() { return nullptr; }
  /** The open dialog, which takes all user actions instead of the form; nullptr if none. */
  FormControls* dialog() { return dialog_.get(); }

  // User actions. Disabled and hidden controls ignore them.
  void Focus(Control& control);
  /** Gives the focus to the table, which has it initially. */
  void FocusTable() { focus_ = nullptr; }
  Control* focus() { return focus_; }
  void Press(Key key);
  /** Turns a check box over and an option on; calls the handler of any other control. */
  void Click(Control& control);
  /** Chooses an entry of a list, from 0 (kNoIndex: none), or sets the value of a scroll bar. */
  void ChooseEntry(Control& control, int entry);
  /** Chooses several entries of a list at once. */
  void ChooseEntries(ListBox& list, std::vector<int> entries);
  void Turn(Switch& control, bool on);
  /** Sets the whole text of a box other than by keys; false if the box's rule does not accept it. */
  bool EditText(TextBox& box, std::string_view text);
  /** Shortens a text that breaks the rule of its box; the result may still break it. */
  void ShortenText(TextBox& box, std::string_view text);

  /** Call after every user action: destroys a dialog that has closed and reports the change. The form calls
   * it for its own actions; its user must call it after actions on the dialog. */
  void Settle();
  /** Called after everything that may have changed what the form shows. */
  std::function<void()> shown_changed;

 protected:
  Button& AddButton(std::string name, std::string caption, std::function<void()> clicked);
  Button& AddMenu(std::string name, std::string caption, std::function<void()> clicked);
  TextBox& AddText(ControlId id, std::string caption, EntryRule rule);
  CheckBox& AddCheck(ControlId id, std::string caption) {
    return Add<CheckBox>(std::move(id), std::move(caption));
  }
  Option& AddOption(ControlId id, std::string caption, int group = 0);
  /** Adds a list, a combo or tabs. */
  template <typename Kind>
  Kind& AddEntries(ControlId id, std::string caption, std::vector<std::string> entries) {
    auto& list = Add<Kind>(std::move(id), std::move(caption));
    list.entries = std::move(entries);
    return list;
  }
  ScrollBar& AddScrollBar(ControlId id, std::string caption, int high);
  Label& AddLabel(ControlId id, std::string text);
  void SetLayout(FormLayout layout) { layout_ = std::move(layout); }

  void OpenDialog(std::unique_ptr<FormControls> dialog) { dialog_ = std::move(dialog); }
  /** For handlers of the dialog, which is destroyed after the handler returns. */
  void CloseDialog() { dialog_closed_ = true; }
  /** Called when the user has changed something. */
  virtual void MarkChanged() {}

 private:
  template <typename Kind>
  Kind& Add(ControlId id, std::string caption) {
    auto& added = static_cast<Kind&>(*controls_.emplace_back(std::make_unique<Kind>()));
    added.id = std::move(id);
    added.caption = std::move(caption);
    return added;
  }
  void TypeInto(TextBox& box, Key key);
  void PutText(TextBox& box, std::string_view text);
  void Acted(Control& control);

  std::vector<std::unique_ptr<Control>> controls_;
  std::vector<Option*> options_;
  FormLayout layout_;
  Control* focus_ = nullptr;
  std::unique_ptr<FormControls> dialog_;
  bool dialog_closed_ = false;
};

/** The numbers from `first` to `last` as texts, padded to `width` digits, each after `prefix`. */
std::vector<std::string> NumberedEntries(int first, int last, int width = 0, std::string_view prefix = {});

}  // namespace tarvok::editing
