#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "editing/editor_form.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** An editor of the command tree: its command, its names and its factory. The file of each editor ends with
 * its row, which the list in editors.cpp puts into its place in the tree. */
struct Editor {
  std::string_view text;  // of the command's node
  std::string_view key;   // of the command
  FormName name;
  std::unique_ptr<EditorForm> (*make)(const EditorContext& context, const FormName& name);
  std::string_view compared = {};  // what a click compares with the open form's name; empty: the one recorded
  bool keeps_highlight = true;
  bool needs_system_file = false;  // it offers the countries of the system file
};

/** Every editor, in the order of the tree. */
std::span<const Editor* const> Editors();
/** Finds an editor by its form's name, ignoring case; nullptr if there is none. */
const Editor* FindEditor(std::string_view form);
/** Creates the editor and loads it. */
std::unique_ptr<EditorForm> OpenEditor(const Editor& editor, const EditorContext& context);

/** The factory of an editor's row. */
template <typename Made>
std::unique_ptr<EditorForm> Make(const EditorContext& context, const FormName& name) {
  return std::make_unique<Made>(context, name);
}

}  // namespace tarvok::editors
