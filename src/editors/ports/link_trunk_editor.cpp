#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "sections/ports/number_tables.h"

namespace tarvok::editors {
namespace link_trunk_editor {

/** "Link Trunk Number" (`frmLinkTrunk`): 30 numbers of at most 16 digits. */
class LinkTrunkEditor : public FieldTableEditor {
 public:
  LinkTrunkEditor(const EditorContext& context, const FormName& name);
};

LinkTrunkEditor::LinkTrunkEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, link_trunk::kTable, {NumberColumn(16)}, {.sort_by = {{1}}}) {
  LayOut();
}

}  // namespace link_trunk_editor

extern const Editor kLinkTrunkEditor{"5 - Link Trunk Number",
                                     "linktrunk",
                                     {"frmLinkTrunk", "Link Trunk Number"},
                                     Make<link_trunk_editor::LinkTrunkEditor>};

}  // namespace tarvok::editors
