#include "editors/system/frmMiniBar.h"

#include "sections/system/mini_bar.h"

namespace tarvok::editors {

frmMiniBar::frmMiniBar(const EditorContext& context, const FormName& name)
    : FieldTableForm(context, name, mini_bar::kTable,
                     {TypedColumn(mini_bar::kName, "Name", TextRule(16)),
                      TypedColumn(mini_bar::kPrice, "Price", DigitsRule(4))},
                     {.sort_by = {{1}}}) {
  LayOut();
}

bool frmMiniBar::IsRemoved(std::string_view value) const {
  return value == statement().empty_rows.front();
}

}  // namespace tarvok::editors
