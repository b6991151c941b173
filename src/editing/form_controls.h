#pragma once

#include <deque>
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
 * A form as a set of controls by name with their values, lists and states, one of which, or the table, has
 * the focus. What a person does comes in here, from a window, a key script or a test; what the form makes of
 * it is in the handlers of its controls.
 */
class FormControls {
 public:
  FormControls() = default;
  virtual ~FormControls() = default;
  FormControls(const FormControls&) = delete;
  FormControls& operator=(const FormControls&) = delete;

  virtual std::string_view title() const = 0;

  /** nullptr for a control that the form does not have. */
  Control* Find(const ControlId& id);
  std::deque<Control>& controls() { return controls_; }
  const FormLayout& layout() const { return layout_; }
  /** The form's table, nullptr for a form without. */
  virtual TableEditor* table() { return nullptr; }
  /** The dialog that stands in front of the form and takes all that a person does; nullptr for none. */
  FormControls* dialog() { return dialog_.get(); }

  // What a person does. Disabled and hidden controls take nothing.
  void Focus(Control& control);
  /** The table has the focus; it has it from the start. */
  void FocusTable() { focus_ = nullptr; }
  Control* focus() { return focus_; }
  void Press(Key key);
  /** A button, a menu entry, a check box (turned over) or an option. */
  void Click(Control& control);
  /** An entry of a list, a combo or tabs, from 0 (kNoIndex: none); the value of a scroll bar. */
  void ChooseEntry(Control& control, int entry);
  /** Many entries of a list at once. */
  void ChooseEntries(Control& control, std::vector<int> entries);
  void Turn(Control& control, bool on);
  /** The text of a box as a whole, edited by other means than keys; it has to pass the box's rule. */
  bool EditText(Control& control, std::string_view text);
  /** A text that the rule of its box would not take, made shorter: it may go on being wrong. */
  void ShortenText(Control& control, std::string_view text);

  /** Behind everything that a person did to the form, and by its user behind what was done to its dialog:
   * a dialog that closed itself goes, and what is shown is drawn anew. */
  void Settle();
  /** Called behind everything that may have changed what the form shows. */
  std::function<void()> shown_changed;

 protected:
  Control& Add(Control control);
  Control& AddButton(std::string name, std::string caption, std::function<void()> clicked);
  Control& AddMenu(std::string name, std::string caption, std::function<void()> clicked);
  Control& AddText(ControlId id, std::string caption, EntryRule rule);
  Control& AddCheck(ControlId id, std::string caption);
  Control& AddOption(ControlId id, std::string caption, int group = 0);
  Control& AddList(ControlId id, std::string caption, std::vector<std::string> entries);
  Control& AddCombo(ControlId id, std::string caption, std::vector<std::string> entries);
  Control& AddLabel(ControlId id, std::string text);
  void SetLayout(FormLayout layout) { layout_ = std::move(layout); }

  void OpenDialog(std::unique_ptr<FormControls> dialog) { dialog_ = std::move(dialog); }
  /** For a handler of the dialog: it goes once the handler has returned. */
  void CloseDialog() { dialog_closed_ = true; }
  /** A change of the project was made. */
  virtual void MarkChanged() {}

 private:
  void Acted(Control& control);

  std::deque<Control> controls_;
  FormLayout layout_;
  Control* focus_ = nullptr;
  std::unique_ptr<FormControls> dialog_;
  bool dialog_closed_ = false;
};

/** The texts from `first` to `last` in turn: "1", "2", ... or padded to `width` digits behind `prefix`. */
std::vector<std::string> NumberedEntries(int first, int last, int width = 0, std::string_view prefix = {});

}  // namespace tarvok::editing
