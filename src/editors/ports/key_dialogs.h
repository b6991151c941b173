#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editing/form_controls.h"
#include "editors/uses.h"
#include "sections/field.h"

namespace tarvok::editors::setup_key_editor {

/** A button's field as shown in its label: an old-style group out by its name, anything else unchanged. */
std::string ButtonLabel(std::string_view field);
/** The inverse of ButtonLabel. */
std::string ButtonField(std::string_view label);

/** A function of a button: its code and its caption. */
struct ButtonCode {
  std::string_view code;
  const char* caption;
};

/**
 * The dialog of a button: options for its function, and a number. Its result is the button's field, "" for a
 * button without a function. There is no result if the user has changed nothing.
 */
class KeyDialog : public FormControls {
 public:
  /** Called with the result, and to close the dialog. */
  struct Ends {
    std::function<void(const std::string& text)> done;
    std::function<void()> close;
  };

  std::string_view title() const override { return "Select Number"; }

 protected:
  KeyDialog(std::span<const ButtonCode> codes, const Field& statement, Ends ends);

  /** Fills the inputs from the label of the button. */
  void Fill(std::string_view label);
  virtual void FillInputs(std::string_view code, std::string_view argument);
  /** The inputs of the option, in order. */
  virtual std::vector<Control*> InputsOf(std::string_view code);
  virtual std::string Text() const;

  /** Adds the dialog's keys to an input: Tab moves on, Return is `cmdOK`, Escape is `cmdCancel`. */
  template <typename Kind>
  Kind& AddInput(Kind& input) {
    TakeInput(input);
    return input;
  }
  FormLayout Buttons();
  std::string_view code() const;
  /** The field after a code, and the field after the comma in it. */
  const Field& ArgumentOf(std::string_view code, bool with_map = false) const;
  const Field& MapOf(std::string_view code) const;
  TextBox& number() { return number_; }
  const TextBox& number() const { return number_; }
  const std::vector<Option*>& options() const { return options_; }
  void ShowOption();

 private:
  void MarkChanged() override { touched_ = true; }
  void Ok();
  void TakeInput(Control& input);
  void FocusNext(const Control& input);

  std::span<const ButtonCode> codes_;
  const Field& statement_;
  Ends ends_;
  std::vector<Option*> options_;
  std::vector<Control*> inputs_;
  TextBox& number_;
  Button& ok_;
  Button& cancel_;
  bool touched_ = false;
};

/** The dialog of a console button (`frmInsertDss`). */
class DssKeyDialog : public KeyDialog {
 public:
  DssKeyDialog(std::string_view label, Ends ends);
};

/** The dialog of a telephone key (`frmInsertKey`). `lines` are the lines that no other key has. */
class PhoneKeyDialog : public KeyDialog {
 public:
  PhoneKeyDialog(std::string_view label, std::vector<std::string> lines, Ends ends);

 protected:
  void FillInputs(std::string_view code, std::string_view argument) override;
  std::vector<Control*> InputsOf(std::string_view code) override;
  std::string Text() const override;

 private:
  void LimitTrunk();

  TextBox& map_;
  ComboBox& group_;
  TextBox& group_map_;
  ComboBox& line_;
};

}  // namespace tarvok::editors::setup_key_editor
