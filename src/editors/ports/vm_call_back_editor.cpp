#include "editors/ports/vm_call_back_editor.h"

#include "sections/ports/vm_call_back.h"

namespace tarvok::editors {

VmCallBackEditor::VmCallBackEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(
          context, name, vm_call_back::kTable,
          {TypedColumn(1, "Check digit", DigitsRule(4)), TypedColumn(2, "Insert digit", DigitsRule(4))},
          {.sort_by = {{1}}}) {
  LayOut();
}

}  // namespace tarvok::editors
