#pragma once

#include <string_view>

#include "editing/uses.h"
#include "store/ini_text.h"

namespace tarvok::editing {

/** What a form says and asks in boxes with the program's title. The window, the command line and the tests
 * each have one. A line break in a text is "\n". */
class Questions {
 public:
  virtual ~Questions() = default;
  virtual void Box(std::string_view text, bool critical) = 0;
  /** Yes and No; anything but Yes is false. */
  virtual bool Ask(std::string_view question) = 0;
  /** The same where Yes destroys what somebody else wrote since the form read `loaded`: without an answer it is
   * No. */
  virtual bool AskToOverwrite(std::string_view question, const IniText& loaded) = 0;
};

}  // namespace tarvok::editing
