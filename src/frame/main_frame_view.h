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

/** A form of the command tree as the frame sees it. Made loaded and not yet shown; destroyed once closed. */
class Form {
 public:
  virtual ~Form() = default;

  /** What it records as `ActiveFormName` at the end of its loading. */
  virtual std::string_view name() const = 0;
  /** A child shows itself and returns; a modal form returns once it is closed. */
  virtual void Show() = 0;
  /** Writes its changes. False where the user or a failure keeps it from it: the form then stays. */
  virtual bool SaveFile() = 0;
  /** Closes without a question. False if it can't go just now, for a session works in it; it stays then. */
  virtual bool Unload() = 0;
  /** Shows a place of its section: row and field get the focus. A form that has no such place does nothing. */
  virtual void GoTo(const Place&) {}
};

/** What the frame lends to a form that it opens. */
struct FormContext {
  SharedState& state;
  /** A child that closes by itself says so here, as the last thing it does: the form is destroyed. */
  std::function<void()> closed;
  /** A form's own menu entries `mnu_close` and `mnu_exit`. They may destroy the form, too. */
  std::function<void()> close_project;
  std::function<void()> exit_program;
};

/** Makes the form of a command, loaded; null where it can't be loaded, after its own words. */
using FormFactory = std::function<std::unique_ptr<Form>(const FormContext&)>;

/** What the main frame shows at a time. */
struct FrameLook {
  std::string title;
  bool has_commands = false;  // the tree holds the commands below its root
  bool can_open = true;       // New and Open, in menu and toolbar
  bool can_close = false;     // Close, in both
  bool has_editor = false;    // a form is shown beside the tree

  bool operator==(const FrameLook&) const = default;
};

/** The window, as the frame's rules see it. Every box and question has the title "Tarvok Setup". */
class MainFrameView {
 public:
  virtual ~MainFrameView() = default;

  virtual void Show(const FrameLook& look) = 0;
  /** At most five paths, the latest first; the separator behind them shows with the first. */
  virtual void ShowRecentFiles(const std::vector<std::string>& paths) = 0;
  virtual void Highlight(int node, bool on) = 0;
  virtual void SetBusyPointer(bool busy) = 0;
  virtual void CriticalBox(std::string_view text) = 0;
  /** Yes and No; anything but Yes is false. */
  virtual bool Ask(std::string_view question) = 0;
  /** The file dialogs begin without a name; "" is a cancelled one. They ask nothing about existing files. */
  virtual std::string ChooseNewFile() = 0;
  virtual std::string ChooseExistingFile() = 0;
  virtual void EndProgram() = 0;
};

}  // namespace tarvok::frame
