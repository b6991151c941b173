#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "sections/ports/number_tables.h"

namespace tarvok::editors {
namespace dial_phone_editor {

/** "Key Dial Phone Number" (`frmDialPhone`): 24 numbers of at most 8 digits. */
class DialPhoneEditor : public FieldTableEditor {
 public:
  DialPhoneEditor(const EditorContext& context, const FormName& name);
};

DialPhoneEditor::DialPhoneEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, dial_phone::kTable, {NumberColumn(8)}, {.sort_by = {{1}}}) {
  LayOut();
}

}  // namespace dial_phone_editor

extern const Editor kDialPhoneEditor{"6 - Key Dial Phone Number",
                                     "dialphone",
                                     {"frmDialPhone", "Key Dial Phone Number"},
                                     Make<dial_phone_editor::DialPhoneEditor>};

}  // namespace tarvok::editors
