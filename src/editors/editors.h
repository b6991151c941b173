#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "editing/editor_form.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** An editor of the command tree: its command key, its names and its factory. */
struct Editor {
  std::string_view key;
  FormName name;
  std::unique_ptr<EditorForm> (*make)(const EditorContext& context, const FormName& name);
  bool needs_system_file = false;  // it offers the countries of the system file
};

/** Every editor, in the order of the tree. */
std::vector<const Editor*> Editors();
/** Finds an editor by its form's name, ignoring case; nullptr if there is none. */
const Editor* FindEditor(std::string_view form);
/** Creates the editor and loads it. */
std::unique_ptr<EditorForm> OpenEditor(const Editor& editor, const EditorContext& context);

/** A factory for the table of editors. */
template <typename Made>
std::unique_ptr<EditorForm> Make(const EditorContext& context, const FormName& name) {
  return std::make_unique<Made>(context, name);
}

// The editors of each folder.
std::span<const Editor> PortEditors();
std::span<const Editor> RoutingEditors();
std::span<const Editor> SystemEditors();

}  // namespace tarvok::editors
