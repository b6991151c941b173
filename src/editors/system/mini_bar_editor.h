#pragma once

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Mini Bar" (`frmMiniBar`): 512 items, by the number under which a guest's consumption is recorded. Rows
 * end with a pipe. */
class MiniBarEditor : public FieldTableEditor {
 public:
  MiniBarEditor(const EditorContext& context, const FormName& name);

 protected:
  std::string RowText(int row) const override { return FieldTableEditor::RowText(row) + "|"; }
  bool IsRemoved(std::string_view value) const override;
};

}  // namespace tarvok::editors
