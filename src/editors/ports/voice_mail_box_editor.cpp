#include "editors/editors.h"
#include "editors/ports/port_fields_editor.h"
#include "sections/ports/port_def.h"

namespace tarvok::editors {
namespace voice_mail_box_editor {

using namespace port_def;
using port_fields_editor::PortFieldsEditor;

/** "Voice Mail Box" (`frmVMBox`): how a port uses voice mail. */
class VoiceMailBoxEditor : public PortFieldsEditor {
 public:
  VoiceMailBoxEditor(const EditorContext& context, const FormName& name);
};

VoiceMailBoxEditor::VoiceMailBoxEditor(const EditorContext& context, const FormName& name)
    : PortFieldsEditor(context, name,
                       {Listed(kVmUse, "cmbMask"), Typed(kGroup, LimitRule()), Typed(kLanguage, ByteRule()),
                        Listed(kCallScreen, "cmbMask2"), Listed(kPersonalMsg, "cmbMask3")}) {}

}  // namespace voice_mail_box_editor

extern const Editor kVoiceMailBoxEditor{"8 - Voice Mail Box",
                                        "vmbox",
                                        {"frmVMBox", "Voice Mail Box"},
                                        Make<voice_mail_box_editor::VoiceMailBoxEditor>};

}  // namespace tarvok::editors
