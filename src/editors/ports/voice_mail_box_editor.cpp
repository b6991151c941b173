#include "editors/ports/voice_mail_box_editor.h"

#include "sections/ports/port_def.h"

namespace tarvok::editors {

using namespace port_def;

VoiceMailBoxEditor::VoiceMailBoxEditor(const EditorContext& context, const FormName& name)
    : PortFieldsEditor(context, name,
                       {Listed(kVmUse, "cmbMask"), Typed(kGroup, LimitRule()), Typed(kLanguage, ByteRule()),
                        Listed(kCallScreen, "cmbMask2"), Listed(kPersonalMsg, "cmbMask3")}) {}

}  // namespace tarvok::editors
