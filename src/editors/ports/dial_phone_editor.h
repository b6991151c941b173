#pragma once

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Key Dial Phone Number" (`frmDialPhone`): 24 numbers of at most 8 digits. */
class DialPhoneEditor : public FieldTableEditor {
 public:
  DialPhoneEditor(const EditorContext& context, const FormName& name);
};

}  // namespace tarvok::editors
