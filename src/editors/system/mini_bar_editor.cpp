#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "sections/system/mini_bar.h"

namespace tarvok::editors {
namespace mini_bar_editor {

/** "Mini Bar" (`frmMiniBar`): 512 items, by the number under which a guest's consumption is recorded. Rows
 * end with a pipe. */
class MiniBarEditor : public FieldTableEditor {
 public:
  MiniBarEditor(const EditorContext& context, const FormName& name)
      : FieldTableEditor(context, name, mini_bar::kTable,
                         {TypedColumn(mini_bar::kName, "Name", TextRule(16)),
                          TypedColumn(mini_bar::kPrice, "Price", DigitsRule(4))},
                         {.sort_by = {{1}}}) {
    LayOut();
  }

 protected:
  std::string RowText(int row) const override { return FieldTableEditor::RowText(row) + "|"; }
  bool IsRemoved(std::string_view value) const override;
};

bool MiniBarEditor::IsRemoved(std::string_view value) const {
  return value == statement().empty_rows.front();
}

}  // namespace mini_bar_editor

extern const Editor kMiniBarEditor{.text = "25 - Mini Bar",
                                   .key = "minibar",
                                   .name = {"frmMiniBar", "Mini Bar"},
                                   .make = Make<mini_bar_editor::MiniBarEditor>,
                                   .keeps_highlight = false};

}  // namespace tarvok::editors
