#include "editing/table_form.h"

#include <algorithm>
#include <utility>

#include "editing/table_operations.h"

namespace tarvok::editing {
namespace {

constexpr std::string_view kSortAsc = "&Sort Asc";
constexpr std::string_view kSortDesc = "&Sort Desc";

}  // namespace

TableForm::TableForm(EditorContext context, FormName name, TableEditor::Options table)
    : EditorForm(std::move(context), name), table_(std::move(table)) {
  table_.changed = [this] { MarkChanged(); };
  AddEditMenu();
  frame_buttons_.push_back(layout::Of(AddButton("cmdTopRow", "Top Ro&w", [this] { table_.GoToTop(); })));
  frame_buttons_.push_back(layout::Of(AddButton("cmdLastRow", "&Last Row", [this] { table_.GoToBottom(); })));
  AddSortMenu();
  AddRowMenu();
}

void TableForm::AddEditMenu() {
  AddMenu("mnu_cut", "Cu&t", [this] {
    table_.clipboard = CopyCells(table_);
    ClearCells(table_);
  });
  AddMenu("mnu_copy", "&Copy", [this] { table_.clipboard = CopyCells(table_); });
  AddMenu("mnu_paste", "&Paste", [this] { table_.refused = PasteCells(table_, table_.clipboard); });
  AddMenu("mnu_delete", "&Delete", [this] {
    if (context().questions.Ask(kDoYouWantToDelete)) ClearCells(table_);
  });
  AddMenu("mnu_fill", "&Fill Down", [this] { table_.refused = FillDown(table_); });
  AddMenu("mnu_undo", "&Undo", [this] { table_.Undo(); });
  AddMenu("mnu_redo", "&Redo", [this] { table_.Redo(); });
}

void TableForm::AddRowMenu() {
  const RowCommands rows = table_.options().rows;
  if (rows == RowCommands::kNone) return;
  const auto over_limit = [this](int before) {
    if (table_.rows() == before) context().questions.Box(kOverLimit, false);
  };
  if (rows == RowCommands::kGrow) {
    AddMenu("mnu_AddRow", "&Add Row", [this, over_limit] {
      const int before = table_.rows();
      AddRow(table_);
      over_limit(before);
    });
  }
  AddMenu("mnu_insert_row", "&Insert Row", [this] {
    if (!table_.CanAddRow() && !table_.IsBlank(table_.rows())) {
      context().questions.Box(kOverLimit, false);
    } else {
      InsertRow(table_);
    }
  });
  AddMenu("mnu_del_row", "De&lete Row", [this] { DeleteRows(table_); });
  frame_buttons_.push_back(layout::Of(AddButton("cmdDelRow", "&Delete Row", [this] { DeleteRows(table_); })));
}

void TableForm::AddSortMenu() {
  if (table_.options().sort_by.empty()) return;
  AddMenu("mnu_Sort_AZ", "Sort &A to Z", [this] { Sort(true); });
  AddMenu("mnu_Sort_ZA", "Sort &Z to A", [this] { Sort(false); });
  sort_ = &AddButton("cmdSort", std::string(kSortAsc), [this] { SortByButton(); });
  frame_buttons_.push_back(layout::Of(*sort_));
}

void TableForm::SortByButton() {
  Sort(next_ascending_);
  next_ascending_ = !next_ascending_;
  sort_->caption = next_ascending_ ? kSortAsc : kSortDesc;
}

void TableForm::Sort(bool ascending) {
  table_.LeaveCell();
  SortRows(table_, ascending);
}

void TableForm::LayOut(std::vector<FormLayout> above, std::vector<FormLayout> buttons,
                       std::vector<FormLayout> next_to) {
  std::vector<FormLayout> row = std::move(frame_buttons_);
  for (FormLayout& button : buttons) row.push_back(std::move(button));
  for (FormLayout& part : OkAndCancel().parts) row.push_back(std::move(part));
  next_to.push_back(layout::Table());
  above.push_back(next_to.size() == 1 ? next_to.front() : layout::Row(std::move(next_to)));
  above.push_back(layout::Row(std::move(row)));
  SetLayout(layout::Column(std::move(above)));
}

std::vector<std::string> Repeats(std::vector<std::string> texts) {
  std::erase(texts, std::string());
  std::sort(texts.begin(), texts.end());
  std::vector<std::string> repeats;
  for (std::size_t i = 1; i < texts.size(); ++i) {
    if (texts[i] == texts[i - 1] && (repeats.empty() || repeats.back() != texts[i]))
      repeats.push_back(texts[i]);
  }
  return repeats;
}

}  // namespace tarvok::editing
