#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editing/uses.h"
#include "store/ini_text.h"

namespace tarvok::editing {

/** What happens to the changes of a form that is closed. */
enum class OnLeaving { kSave, kDrop, kStayOpen };

/** Message boxes and questions of a form, with the program's title. Implemented by the window, the command
 * line and the tests. A line break in a text is "\n". */
class Questions {
 public:
  virtual ~Questions() = default;
  virtual void Box(std::string_view text, bool critical) = 0;
  /** Asks Yes or No; anything but Yes is false. */
  virtual bool Ask(std::string_view question) = 0;
  /** Asks Yes or No before a form with changes closes; a window may also be left without an answer. */
  virtual OnLeaving AskToSave(std::string_view question) = 0;
  /** Like Ask, but Yes overwrites what others have written since the form read `loaded`, so the default is
   * No. */
  virtual bool AskToOverwrite(std::string_view question, const IniText& loaded) = 0;
  /** Asks before a save clears what refers to removed rows; `places` has a line for each reference. */
  virtual bool AskToClear(std::string_view question, const std::vector<std::string>& places) = 0;
};

}  // namespace tarvok::editing
