#pragma once

#include "editors/ports/port_fields_editor.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Voice Mail Box" (`frmVMBox`): how a port uses voice mail. */
class VoiceMailBoxEditor : public PortFieldsEditor {
 public:
  VoiceMailBoxEditor(const EditorContext& context, const FormName& name);
};

}  // namespace tarvok::editors
