#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "editing/editor_form.h"
#include "editing/questions.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** Prints boxes and questions as lines, `box: TEXT` and `ask: TEXT -> Yes`, with prepared answers. */
class ScriptedQuestions : public Questions {
 public:
  using Print = std::function<void(std::string_view line)>;

  explicit ScriptedQuestions(Print print) : print_(std::move(print)) {}

  void Box(std::string_view text, bool critical) override;
  /** The next prepared answer. The default is Yes, or No if it would overwrite changes by others. */
  bool Ask(std::string_view question) override { return NextAnswer(question, true); }
  OnLeaving AskToSave(std::string_view question) override {
    return NextAnswer(question, true) ? OnLeaving::kSave : OnLeaving::kDrop;
  }
  bool AskToOverwrite(std::string_view question, const IniText& /*loaded*/) override {
    return NextAnswer(question, false);
  }
  bool AskToClear(std::string_view question, const std::vector<std::string>& /*places*/) override {
    return NextAnswer(question, true);
  }
  void Answer(bool yes) { answers_.push_back(yes); }
  void PrintLine(std::string_view line) { print_(line); }

 private:
  bool NextAnswer(std::string_view question, bool yes);

  Print print_;
  std::deque<bool> answers_;
};

/**
 * Drives a form with keys and clicks, one command per line:
 *
 *   go ROW COLUMN          select ROW COLUMN ROW COLUMN     type TEXT        press KEY
 *   pick TEXT              focus CONTROL                    set CONTROL VALUE
 *   click CONTROL          paste TEXT, copy, cut            answer WORD ...
 *   list CONTROL, show, value CONTROL
 *
 * A column is given by its title, in quotes if it has blanks, or by its number; a control by its name, with
 * its index in brackets if it has one. Blank lines and lines that start with "#" are ignored.
 */
class FormScript {
 public:
  FormScript(EditorForm& form, ScriptedQuestions& questions) : form_(form), questions_(questions) {}

  /** Runs a line. Returns "" or what is wrong with it. */
  std::string Run(std::string_view line);

 private:
  std::string Go(std::string_view rest);
  std::string Select(std::string_view rest);
  std::string Type(std::string_view rest);
  std::string Press(std::string_view rest);
  std::string Pick(std::string_view rest);
  std::string Focus(std::string_view rest);
  std::string Set(std::string_view rest);
  std::string Click(std::string_view rest);
  std::string Paste(std::string_view rest);
  std::string Copy(std::string_view rest);
  std::string Cut(std::string_view rest);
  std::string Answer(std::string_view rest);
  std::string List(std::string_view rest);
  std::string Show(std::string_view rest);
  std::string Value(std::string_view rest);

  /** What the commands act on: the open dialog, or else the form. */
  FormControls& Front();
  Control* FindControl(std::string_view& rest, std::string& error);
  std::string ClickMenu(const char* name);
  /** True if the name is that of the table, or of the field or list over its cells. */
  bool IsOverTable(std::string_view name);

  EditorForm& form_;
  ScriptedQuestions& questions_;
};

}  // namespace tarvok::editing
