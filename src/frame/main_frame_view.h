#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/uses.h"

namespace tarvok::frame {

/** The state of the main frame that the view shows. */
struct FrameLook {
  std::string title;
  bool has_commands = false;  // the tree holds the commands below its root
  bool can_open = true;       // New and Open, in menu and toolbar
  bool can_close = false;     // Close, in both
  bool has_editor = false;    // a form is shown next to the tree

  bool operator==(const FrameLook&) const = default;
};

/** The main window, as the frame sees it. Every box and question has the title "Tarvok Setup". */
class MainFrameView {
 public:
  virtual ~MainFrameView() = default;

  virtual void Show(const FrameLook& look) = 0;
  /** At most five paths, the latest first. The separator after them is visible if there is at least one. */
  virtual void ShowRecentFiles(const std::vector<std::string>& paths) = 0;
  virtual void Highlight(int node, bool on) = 0;
  virtual void SetBusyPointer(bool busy) = 0;
  virtual void CriticalBox(std::string_view text) = 0;
  /** Asks Yes or No; anything but Yes is false. */
  virtual bool Ask(std::string_view question) = 0;
  /** The file dialogs start without a name and do not ask about existing files; "" means cancelled. */
  virtual std::string ChooseNewFile() = 0;
  virtual std::string ChooseExistingFile() = 0;
  virtual void EndProgram() = 0;
};

}  // namespace tarvok::frame
