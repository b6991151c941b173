#include "editors/ports/link_trunk_editor.h"

#include "sections/ports/number_tables.h"

namespace tarvok::editors {

LinkTrunkEditor::LinkTrunkEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, link_trunk::kTable, {NumberColumn(16)}, {.sort_by = {{1}}}) {
  LayOut();
}

}  // namespace tarvok::editors
