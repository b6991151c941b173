#include "editors/editors.h"

#include "project/commands.h"
#include "store/ini_text.h"

namespace tarvok::editors {

std::vector<const Editor*> Editors() {
  std::vector<const Editor*> editors;
  for (const Command& command : kCommands) {
    for (const std::span<const Editor> folder : {PortEditors(), RoutingEditors(), SystemEditors()}) {
      for (const Editor& editor : folder) {
        if (editor.key == command.key) editors.push_back(&editor);
      }
    }
  }
  return editors;
}

const Editor* FindEditor(std::string_view form) {
  for (const Editor* editor : Editors()) {
    if (SameName(editor->name.form, form)) return editor;
  }
  return nullptr;
}

std::unique_ptr<EditorForm> OpenEditor(const Editor& editor, const EditorContext& context) {
  std::unique_ptr<EditorForm> form = editor.make(context, editor.name);
  form->Open();
  return form;
}

}  // namespace tarvok::editors
