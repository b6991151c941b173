#pragma once

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** `frmLinkTrunk`: 30 numbers of at most 16 digits. */
class frmLinkTrunk : public FieldTableForm {
 public:
  frmLinkTrunk(const EditorContext& context, const FormName& name);
};

/** `frmDialPhone`: 24 numbers of at most 8 digits. */
class frmDialPhone : public FieldTableForm {
 public:
  frmDialPhone(const EditorContext& context, const FormName& name);
};

/** `frmVMCallBack`: 10 rows of what a voice mail call back looks for and what it puts in front. */
class frmVMCallBack : public FieldTableForm {
 public:
  frmVMCallBack(const EditorContext& context, const FormName& name);
};

}  // namespace tarvok::editors
