#include "editors/editors.h"
#include "editors/ports/port_fields_editor.h"
#include "sections/ports/port_def.h"
#include "store/number_text.h"

namespace tarvok::editors {
namespace call_forward_editor {

using namespace port_def;
using port_fields_editor::PortFieldsEditor;

/** "Call Forward" (`frmCallFW`): do not disturb, and where calls go that a port does not answer. */
class CallForwardEditor : public PortFieldsEditor {
 public:
  CallForwardEditor(const EditorContext& context, const FormName& name);
};

constexpr int kMostRingTime = 254;  // the exchange takes 255 for "not set"

FieldColumn WithMostRingTime(FieldColumn ring) {
  ring.stored = [](std::string_view cell) {
    return Val(cell) > kMostRingTime ? std::to_string(kMostRingTime) : FieldText(cell);
  };
  return ring;
}

CallForwardEditor::CallForwardEditor(const EditorContext& context, const FormName& name)
    : PortFieldsEditor(context, name,
                       {Listed(kDnd, "cmbMask"), Typed(kDisa, DigitsRule(12)), Typed(kCo, DigitsRule(12)),
                        Typed(kExt, DigitsRule(12)), Typed(kBusy, DigitsRule(12)),
                        Typed(kNoAns, DigitsRule(12)), WithMostRingTime(Typed(kRingTime, ByteRule()))}) {}

}  // namespace call_forward_editor

extern const Editor kCallForwardEditor{"7 - Call Forward",
                                       "callforward",
                                       {"frmCallFW", "Call Forward"},
                                       Make<call_forward_editor::CallForwardEditor>};

}  // namespace tarvok::editors
