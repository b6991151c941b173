#include "editors/ports/call_forward_editor.h"

#include "sections/ports/port_def.h"
#include "store/number_text.h"

namespace tarvok::editors {

using namespace port_def;

namespace {

constexpr int kMostRingTime = 254;  // the exchange takes 255 for "not set"

FieldColumn WithMostRingTime(FieldColumn ring) {
  ring.stored = [](std::string_view cell) {
    return Val(cell) > kMostRingTime ? std::to_string(kMostRingTime) : FieldText(cell);
  };
  return ring;
}

}  // namespace

CallForwardEditor::CallForwardEditor(const EditorContext& context, const FormName& name)
    : PortFieldsEditor(context, name,
                       {Listed(kDnd, "cmbMask"), Typed(kDisa, DigitsRule(12)), Typed(kCo, DigitsRule(12)),
                        Typed(kExt, DigitsRule(12)), Typed(kBusy, DigitsRule(12)),
                        Typed(kNoAns, DigitsRule(12)), WithMostRingTime(Typed(kRingTime, ByteRule()))}) {}

}  // namespace tarvok::editors
