#pragma once

#include "editors/ports/port_fields_editor.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Call Forward" (`frmCallFW`): do not disturb, and where calls go that a port does not answer. */
class CallForwardEditor : public PortFieldsEditor {
 public:
  CallForwardEditor(const EditorContext& context, const FormName& name);
};

}  // namespace tarvok::editors
