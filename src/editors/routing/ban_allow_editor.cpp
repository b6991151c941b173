#include <string>
#include <string_view>
#include <vector>

#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/routing/class_editor.h"
#include "editors/used_by.h"
#include "project/references.h"
#include "sections/routing/class_digit.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace ban_allow_editor {

/** "Ban/Allow Number" (`frmClassDigit`): the numbers that each class bans and allows. */
class BanAllowEditor : public ClassEditor {
 public:
  BanAllowEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override {
    return SameName(section, class_digit::kBanTable.section) && ShowPage(row - 1, field);
  }

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static std::vector<Column> Columns(BanAllowEditor* form);
  /** True if the column holds as many numbers as a class may have. */
  bool IsFull(int column, int most) const;
};

using Texts = std::vector<std::string>;

constexpr int kRowsOfClass = 21;

Texts Pieces(std::string_view list) {
  Texts pieces;
  ForEachField(list, [&](std::string_view piece) { pieces.emplace_back(piece); });
  return pieces;
}

std::vector<Column> BanAllowEditor::Columns(BanAllowEditor* form) {
  std::vector<Column> columns;
  for (const Table* table : {&class_digit::kBanTable, &class_digit::kAllowTable}) {
    const int number = static_cast<int>(columns.size()) + 1;
    const auto entry_of = [form, number, most = table->members.most](int row) {
      return form->IsFull(number, most) && form->grid().Cell(row, number).empty() ? Entry::kReadOnly
                                                                                  : Entry::kText;
    };
    columns.push_back({.title = std::string(table->fields[0].name),
                       .rule = {.characters = "0123456789*#"},
                       .entry_of = entry_of,
                       .overlay = "txtMask"});
  }
  return columns;
}

BanAllowEditor::BanAllowEditor(const EditorContext& context, const FormName& name)
    : ClassEditor(context, name, Columns(this), RowCommands::kNone, kRowsOfClass) {
  AddPages({"lsCOR"}, "Classes", LabelledRows(class_digit::kBanTable).Names());
}

bool BanAllowEditor::IsFull(int column, int most) const {
  int numbers = 0;
  for (int row = 1; row <= grid().rows(); ++row) numbers += grid().Cell(row, column).empty() ? 0 : 1;
  return numbers >= most;
}

void BanAllowEditor::Load(const IniText& project) {
  std::vector<std::vector<Texts>> pages;
  for (int number = 1; number <= kClasses; ++number) {
    pages.push_back({Pieces(RowValue(project, class_digit::kBanTable, number)),
                     Pieces(RowValue(project, class_digit::kAllowTable, number))});
  }
  FillPages(pages);
}

void BanAllowEditor::Write(IniEdit& project) {
  RowMoves emptied;
  for (int number = 1; number <= kClasses; ++number) {
    const Texts banned = TextsOf(number - 1, 0);
    const Texts allowed = TextsOf(number - 1, 1);
    StoreList(project, class_digit::kBanTable, number, banned, Pieces);
    StoreList(project, class_digit::kAllowTable, number, allowed, Pieces);
    if (banned.empty() && allowed.empty()) emptied[number] = 0;
  }
  WillClear(InWords(project.base(), class_digit::kBanTable,
                    RepairReferences(project, project.base(), class_digit::kBanTable, emptied)));
  LeaveEmptyGroups(project);
}
}  // namespace ban_allow_editor

extern const Editor kBanAllowEditor{"19 - Ban/Allow Number",
                                    "digitcor",
                                    {"frmClassDigit", "Ban/Allow Number"},
                                    Make<ban_allow_editor::BanAllowEditor>};

}  // namespace tarvok::editors
