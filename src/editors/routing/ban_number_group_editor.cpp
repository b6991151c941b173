#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/routing/class_editor.h"
#include "sections/routing/class_digit.h"
#include "sections/routing/class_group.h"
#include "sections/rows.h"
#include "store/number_text.h"

namespace tarvok::editors {
namespace ban_number_group_editor {

/** "Ban Number Group" (`frmCORGroup`): the classes of each group. */
class BanNumberGroupEditor : public ClassEditor {
 public:
  BanNumberGroupEditor(const EditorContext& context, const FormName& name)
      : ClassEditor(context, name, Columns(this), RowCommands::kFixed, class_group::kTable.members.most) {
    AddPages({"lsCORGroup"}, "Groups", LabelledRows(class_group::kTable).Names());
  }

  bool ShowPlace(std::string_view section, int row, int field) override {
    return SameName(section, class_group::kTable.section) && ShowPage(row - 1, field);
  }

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static std::vector<Column> Columns(BanNumberGroupEditor* form);

  std::vector<std::string> offered_;
};

using Texts = std::vector<std::string>;

std::string ClassName(std::string_view stored) {
  return std::string(class_digit::kBanTable.label).append(" ").append(std::to_string(Val(stored)));
}

std::string ClassOf(std::string_view name) {
  const std::size_t number = class_digit::kBanTable.label.size();
  return Padded(Val(name.substr(std::min(number, name.size()))), class_digit::kBanTable.rows.width);
}

std::vector<Column> BanNumberGroupEditor::Columns(BanNumberGroupEditor* form) {
  return {{.title = std::string(class_group::kTable.fields[0].name),
           .entry = Entry::kList,
           .list_of = [form](int) { return form->offered_; },
           .overlay = "cmbMask"}};
}

void BanNumberGroupEditor::Load(const IniText& project) {
  offered_.clear();
  for (int number = 1; number <= kClasses; ++number) {
    if (!RowValue(project, class_digit::kBanTable, number).empty() ||
        !RowValue(project, class_digit::kAllowTable, number).empty())
      offered_.push_back(ClassName(std::to_string(number)));
  }
  std::vector<std::vector<Texts>> pages;
  for (int number = 1; number <= kClassGroups; ++number) {
    Texts names;
    for (const std::string& stored : Classes(RowValue(project, class_group::kTable, number)))
      names.push_back(ClassName(stored));
    pages.push_back({std::move(names)});
  }
  FillPages(pages);
}

void BanNumberGroupEditor::Write(IniEdit& project) {
  for (int number = 1; number <= kClassGroups; ++number) {
    Texts classes;
    for (const std::string& name : TextsOf(number - 1, 0)) classes.push_back(ClassOf(name));
    StoreList(project, class_group::kTable, number, classes, Classes);
  }
  LeaveEmptyGroups(project);
}
}  // namespace ban_number_group_editor

extern const Editor kBanNumberGroupEditor{"20 - Ban Number Group",
                                          "corgroup",
                                          {"frmCORGroup", "Ban Number Group"},
                                          Make<ban_number_group_editor::BanNumberGroupEditor>};

}  // namespace tarvok::editors
