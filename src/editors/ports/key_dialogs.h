#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editing/form_controls.h"
#include "editors/uses.h"
#include "sections/field.h"

namespace tarvok::editors {

/** A button's field as its label shows it: an older group out by its name, everything else as it stands. */
std::string ButtonLabel(std::string_view field);
/** The field of a label. */
std::string ButtonField(std::string_view label);

/** What a button can do: its code, and what people call it. */
struct ButtonCode {
  std::string_view code;
  const char* caption;
};

/**
 * The dialog behind a button: options for what it does, and a number. Its result is the button's field, ""
 * for a button that does nothing; a dialog in which nothing was touched has none.
 */
class KeyDialog : public FormControls {
 public:
  /** What is done with the result, and how the dialog is closed. */
  struct Ends {
    std::function<void(const std::string& text)> done;
    std::function<void()> close;
  };

  std::string_view title() const override { return "Select Number"; }

 protected:
  KeyDialog(std::span<const ButtonCode> codes, const Field& statement, Ends ends);

  /** Splits the label of the button over the inputs. */
  void Fill(std::string_view label);
  virtual void FillInputs(std::string_view code, std::string_view argument);
  /** Inputs that the option has, enabled in this order. */
  virtual std::vector<Control*> InputsOf(std::string_view code);
  virtual std::string Text() const;

  /** The input belongs to the dialog's keys: Tab goes on, Return is `cmdOK`, Escape is `cmdCancel`. */
  Control& AddInput(Control& input);
  FormLayout Buttons();
  std::string_view code() const;
  /** What follows a code, and what stands behind a comma in it. */
  const Field& ArgumentOf(std::string_view code, bool with_map = false) const;
  const Field& MapOf(std::string_view code) const;
  Control& number() { return number_; }
  const Control& number() const { return number_; }
  const std::vector<Control*>& options() const { return options_; }
  void ShowOption();

 private:
  void MarkChanged() override { touched_ = true; }
  void Ok();
  void FocusNext(const Control& input);

  std::span<const ButtonCode> codes_;
  const Field& statement_;
  Ends ends_;
  std::vector<Control*> options_;
  std::vector<Control*> inputs_;
  Control& number_;
  Control& ok_;
  Control& cancel_;
  bool touched_ = false;
};

/** `frmInsertDss`: what a button of the console does. */
class DssKeyDialog : public KeyDialog {
 public:
  DssKeyDialog(std::string_view label, Ends ends);
};

/** `frmInsertKey`: what a key of the telephone does; `lines` are those that no other key has. */
class PhoneKeyDialog : public KeyDialog {
 public:
  PhoneKeyDialog(std::string_view label, std::vector<std::string> lines, Ends ends);

 protected:
  void FillInputs(std::string_view code, std::string_view argument) override;
  std::vector<Control*> InputsOf(std::string_view code) override;
  std::string Text() const override;

 private:
  void LimitTrunk();

  Control& map_;
  Control& group_;
  Control& group_map_;
  Control& line_;
};

}  // namespace tarvok::editors
