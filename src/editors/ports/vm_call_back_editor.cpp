#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "sections/ports/vm_call_back.h"

namespace tarvok::editors {
namespace vm_call_back_editor {

/** "VM Call Back" (`frmVMCallBack`): 10 rows, each with the digits to check for and the digits to insert. */
class VmCallBackEditor : public FieldTableEditor {
 public:
  VmCallBackEditor(const EditorContext& context, const FormName& name);
};

VmCallBackEditor::VmCallBackEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(
          context, name, vm_call_back::kTable,
          {TypedColumn(1, "Check digit", DigitsRule(4)), TypedColumn(2, "Insert digit", DigitsRule(4))},
          {.sort_by = {{1}}}) {
  LayOut();
}

}  // namespace vm_call_back_editor

extern const Editor kVmCallBackEditor{"22 - VM Call Back",
                                      "vmcallback",
                                      {"frmVMCallBack", "VM Call Back"},
                                      Make<vm_call_back_editor::VmCallBackEditor>};

}  // namespace tarvok::editors
