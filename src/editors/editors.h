#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "editing/editor_form.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** An editor of the command tree: by which key the tree opens it, what it is called, how it is made. */
struct Editor {
  std::string_view key;
  FormName name;
  std::unique_ptr<EditorForm> (*make)(const EditorContext& context, const FormName& name);
  bool needs_system_file = false;  // it offers the countries that the system file lists
};

/** Every editor, in the order of the tree. */
std::vector<const Editor*> Editors();
/** By the form's name, case aside; nullptr for none. */
const Editor* FindEditor(std::string_view form);
/** Makes the editor, loaded. */
std::unique_ptr<EditorForm> OpenEditor(const Editor& editor, const EditorContext& context);

/** For an editor's row: makes a form of that class. */
template <typename Made>
std::unique_ptr<EditorForm> Make(const EditorContext& context, const FormName& name) {
  return std::make_unique<Made>(context, name);
}

// The editors of each folder.
std::span<const Editor> PortEditors();
std::span<const Editor> RoutingEditors();
std::span<const Editor> SystemEditors();

}  // namespace tarvok::editors
