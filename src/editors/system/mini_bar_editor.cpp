#include "editors/system/mini_bar_editor.h"

#include "sections/system/mini_bar.h"

namespace tarvok::editors {

MiniBarEditor::MiniBarEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, mini_bar::kTable,
                       {TypedColumn(mini_bar::kName, "Name", TextRule(16)),
                        TypedColumn(mini_bar::kPrice, "Price", DigitsRule(4))},
                       {.sort_by = {{1}}}) {
  LayOut();
}

bool MiniBarEditor::IsRemoved(std::string_view value) const {
  return value == statement().empty_rows.front();
}

}  // namespace tarvok::editors
