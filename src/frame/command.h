#pragma once

#include <functional>
#include <memory>
#include <string_view>

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

/** How a form is shown: next to the tree, which stays usable, or as a modal window. */
enum class ShowMode { kChild, kModal };

/** A command of the tree and the form that it opens. */
struct Command {
  std::string_view text;           // of the node
  std::string_view key;            // identifies the node
  std::string_view recorded;       // `ActiveFormName` that the form sets when it loads
  std::string_view compared = {};  // what a click compares with that name; empty: `recorded`
  FormFactory make;
  ShowMode mode = ShowMode::kChild;
  bool closed_by_name = true;  // CloseActiveForm can close the form
  bool saved_on_close = true;  // CloseActiveForm saves its changes first
  bool keeps_highlight = true;
  bool needs_system_file = false;
  bool needs_project = true;  // it reads the open project's file

  /** A click finds its form already open if this is the active form's name. */
  std::string_view CompareName() const { return compared.empty() ? recorded : compared; }
};

inline constexpr std::string_view kRootText = "Setup PBX";
inline constexpr int kRootNode = 1;
/** The node of the first command; the others follow in their order. */
inline constexpr int kFirstCommandNode = 2;

}  // namespace tarvok::frame
