#pragma once

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "VM Call Back" (`frmVMCallBack`): 10 rows, each with the digits to check for and the digits to insert. */
class VmCallBackEditor : public FieldTableEditor {
 public:
  VmCallBackEditor(const EditorContext& context, const FormName& name);
};

}  // namespace tarvok::editors
