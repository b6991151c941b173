#include "editors/ports/dial_phone_editor.h"

#include "sections/ports/number_tables.h"

namespace tarvok::editors {

DialPhoneEditor::DialPhoneEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, dial_phone::kTable, {NumberColumn(8)}, {.sort_by = {{1}}}) {
  LayOut();
}

}  // namespace tarvok::editors
