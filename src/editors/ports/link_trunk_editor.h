#pragma once

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Link Trunk Number" (`frmLinkTrunk`): 30 numbers of at most 16 digits. */
class LinkTrunkEditor : public FieldTableEditor {
 public:
  LinkTrunkEditor(const EditorContext& context, const FormName& name);
};

}  // namespace tarvok::editors
