#pragma once

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** `frmLinkTrunk`: 30 numbers of at most 16 digits. */
class LinkTrunkEditor : public FieldTableEditor {
 public:
  LinkTrunkEditor(const EditorContext& context, const FormName& name);
};

/** `frmDialPhone`: 24 numbers of at most 8 digits. */
class DialPhoneEditor : public FieldTableEditor {
 public:
  DialPhoneEditor(const EditorContext& context, const FormName& name);
};

/** `frmVMCallBack`: 10 rows of what a voice mail call back looks for and what it puts in front. */
class VmCallBackEditor : public FieldTableEditor {
 public:
  VmCallBackEditor(const EditorContext& context, const FormName& name);
};

}  // namespace tarvok::editors
