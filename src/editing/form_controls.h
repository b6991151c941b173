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
  std::deque<Control>& controls() { return controls_; }
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
  /** For a button, a menu entry, a check box (toggles it) or an option. */
  void Click(Control& control);
  /** Chooses an entry of a list, a combo or tabs, from 0 (kNoIndex: none), or sets the value of a scroll
   * bar. */
  void ChooseEntry(Control& control, int entry);
  /** Chooses several entries of a list at once. */
  void ChooseEntries(Control& control, std::vector<int> entries);
  void Turn(Control& control, bool on);
  /** Sets the whole text of a box other than by keys; false if the box's rule does not accept it. */
  bool EditText(Control& control, std::string_view text);
  /** Shortens a text that breaks the rule of its box; the result may still break it. */
  void ShortenText(Control& control, std::string_view text);

  /** Call after every user action: destroys a dialog that has closed and reports the change. The form calls
   * it for its own actions; its user must call it after actions on the dialog. */
  void Settle();
  /** Called after everything that may have changed what the form shows. */
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
  /** For handlers of the dialog, which is destroyed after the handler returns. */
  void CloseDialog() { dialog_closed_ = true; }
  /** Called when the user has changed something. */
  virtual void MarkChanged() {}

 private:
  void Acted(Control& control);

  std::deque<Control> controls_;
  FormLayout layout_;
  Control* focus_ = nullptr;
  std::unique_ptr<FormControls> dialog_;
  bool dialog_closed_ = false;
};

/** The numbers from `first` to `last` as texts, padded to `width` digits, each after `prefix`. */
std::vector<std::string> NumberedEntries(int first, int last, int width = 0, std::string_view prefix = {});

}  // namespace tarvok::editing
