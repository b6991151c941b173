#include "editors/ports/number_editors.h"

#include "sections/ports/number_tables.h"
#include "sections/ports/vm_call_back.h"

namespace tarvok::editors {
namespace {

/** A number alone in its row: a blank one is an empty value. */
FieldColumn NumberColumn(int most) {
  FieldColumn column = TypedColumn(1, "Number", DigitsRule(most));
  column.shown = column.stored = [](std::string_view text) { return std::string(text); };
  return column;
}

}  // namespace

LinkTrunkEditor::LinkTrunkEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, link_trunk::kTable, {NumberColumn(16)}, {.sort_by = {{1}}}) {
  LayOut();
}

DialPhoneEditor::DialPhoneEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, dial_phone::kTable, {NumberColumn(8)}, {.sort_by = {{1}}}) {
  LayOut();
}

VmCallBackEditor::VmCallBackEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(
          context, name, vm_call_back::kTable,
          {TypedColumn(1, "Check digit", DigitsRule(4)), TypedColumn(2, "Insert digit", DigitsRule(4))},
          {.sort_by = {{1}}}) {
  LayOut();
}

}  // namespace tarvok::editors
