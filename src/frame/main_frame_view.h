#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/uses.h"
#include "project/place.h"
#include "store/shared_state.h"

namespace tarvok::frame {

/** A form of the command tree, as the frame sees it. Created loaded but not yet shown; destroyed once
 * closed. */
class Form {
 public:
  virtual ~Form() = default;

  /** The `ActiveFormName` of the form, set once it has loaded. */
  virtual std::string_view name() const = 0;
  /** A child form returns at once; a modal form returns when it is closed. */
  virtual void Show() = 0;
  /** Saves the changes. False if the user refuses or saving fails; the form then stays open. */
  virtual bool SaveFile() = 0;
  /** Closes without asking. False, and the form stays open, while a session is running in it. */
  virtual bool Unload() = 0;
  /** Moves the focus to a row and field. Does nothing if the form has no such place. */
  virtual void GoTo(const Place&) {}
};

/** What the frame passes to a form that it opens. */
struct FormContext {
  SharedState& state;
  /** A child form that closes itself must call this last: it destroys the form. */
  std::function<void()> closed;
  /** For the form's own menu entries `mnu_close` and `mnu_exit`. They may destroy the form, too. */
  std::function<void()> close_project;
  std::function<void()> exit_program;
};

/** Creates and loads the form of a command; nullptr if it cannot be loaded, after the form has said why. */
using FormFactory = std::function<std::unique_ptr<Form>(const FormContext&)>;

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
