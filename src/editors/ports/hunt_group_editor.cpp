#include <array>
#include <string>
#include <vector>

#include "editing/editor_form.h"
#include "editors/editors.h"
#include "editors/field_columns.h"
#include "sections/ports/assign.h"
#include "sections/ports/hunt_group.h"
#include "sections/ports/name.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace hunt_group_editor {

using hunt_group::kTable;

/** "Hunt Group" (`frmGrpHunt`): the members of each hunt group, in order, and the numbers that can be
 * added. */
class HuntGroupEditor : public EditorForm {
 public:
  HuntGroupEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;
  void Saved() override { context().state.data_changed = false; }

 private:
  void ShowGroup();
  void AddMembers();
  void DeleteMembers();

  ListBox& groups_;
  ListBox& numbers_;
  std::array<ListBox*, kHuntGroups> lists_{};
  std::vector<int> rows_;                                      // number rows, in the order of `ListView1`
  std::array<std::vector<std::string>, kHuntGroups> members_;  // as stored, in list order
  int total_ = 0;
};

/** Number and name of a number row, as shown in both lists; "" if the row has no number. */
std::string TextOf(const IniText& project, std::int64_t number) {
  if (number < 1 || number > kAssignRows) return {};
  const FieldList row(RowValue(project, assign::kTable, static_cast<int>(number)));
  const std::string digits = CellText(row[assign::kNumber]);
  if (digits.empty()) return {};
  const std::int64_t name = Val(row[assign::kName]);
  const bool named = name >= 1 && name <= kNameRows;
  return digits + " - " +
         std::string(named ? RowValue(project, name::kTable, static_cast<int>(name)) : std::string_view());
}

HuntGroupEditor::HuntGroupEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name),
      groups_(AddEntries<ListBox>({"lsGroup"}, "Hunt groups",
                                  NumberedEntries(1, kHuntGroups, kTable.rows.width, "Hunt Group "))),
      numbers_(AddEntries<ListBox>({"ListView1"}, "Numbers that may be added", {})) {
  groups_.current = 0;
  groups_.changed = [this] { ShowGroup(); };
  numbers_.many = true;
  std::vector<FormLayout> members;
  for (int group = 0; group < kHuntGroups; ++group) {
    ListBox& list = AddEntries<ListBox>({"lsGroupHunt", group}, "Members", {});
    list.many = true;
    lists_[static_cast<std::size_t>(group)] = &list;
    members.push_back(layout::Of(list));
  }
  members.push_back(layout::Of(AddButton("cmdDel", "&Delete Member", [this] { DeleteMembers(); })));
  Control& add = AddButton("cmdAdd", "Add &Member", [this] { AddMembers(); });
  SetLayout(layout::Column({layout::Row({layout::Group("Hunt groups", {layout::Of(groups_)}),
                                         layout::Group("Members", std::move(members)),
                                         layout::Group("Numbers", {layout::Of(numbers_), layout::Of(add)})}),
                            OkAndCancel()}));
}

bool HuntGroupEditor::ShowPlace(std::string_view section, int row, int field) {
  if (!SameName(section, kTable.section) || row < 1 || row > kHuntGroups) return false;
  groups_.current = row - 1;
  ShowGroup();
  ListBox& list = *lists_[static_cast<std::size_t>(row) - 1];
  if (field >= 1 && field <= static_cast<int>(list.entries.size())) ChooseEntry(list, field - 1);
  return true;
}

void HuntGroupEditor::Load(const IniText& project) {
  for (int row = 1; row <= kAssignRows; ++row) {
    if (GetField(RowValue(project, assign::kTable, row), assign::kType) != kPortType) continue;
    const std::string text = TextOf(project, row);
    if (text.empty()) continue;
    rows_.push_back(row);
    numbers_.entries.push_back(text);
  }
  for (int group = 1; group <= kHuntGroups; ++group) {
    const auto index = static_cast<std::size_t>(group) - 1;
    ForEachMember(RowValue(project, kTable, group), [&](std::string_view member) {
      const std::string text = TextOf(project, Val(member));
      lists_[index]->entries.push_back(text.empty() ? std::string(member) : text);
      members_[index].push_back(Padded(Val(member), kTable.fields[0].width));
      ++total_;
    });
  }
  ShowGroup();
}

void HuntGroupEditor::ShowGroup() {
  for (int group = 0; group < kHuntGroups; ++group)
    lists_[static_cast<std::size_t>(group)]->visible = group == groups_.current;
}

void HuntGroupEditor::AddMembers() {
  if (groups_.current < 0) return;
  const auto group = static_cast<std::size_t>(groups_.current);
  for (const int chosen : numbers_.chosen) {
    if (total_ >= kHuntMembers) {
      context().questions.Box(kOverLimit, false);
      return;
    }
    const auto index = static_cast<std::size_t>(chosen);
    lists_[group]->entries.push_back(numbers_.entries[index]);
    members_[group].push_back(Padded(rows_[index], kTable.fields[0].width));
    ++total_;
    MarkChanged();
  }
}

void HuntGroupEditor::DeleteMembers() {
  if (groups_.current < 0) return;
  const auto group = static_cast<std::size_t>(groups_.current);
  ListBox& list = *lists_[group];
  for (auto chosen = list.chosen.rbegin(); chosen != list.chosen.rend(); ++chosen) {
    list.entries.erase(list.entries.begin() + *chosen);
    members_[group].erase(members_[group].begin() + *chosen);
    --total_;
    MarkChanged();
  }
  list.chosen.clear();
  list.current = kNoIndex;
}

void HuntGroupEditor::Write(IniEdit& project) {
  project.Set(kTable.section, kNowKey, std::to_string(total_));
  for (int group = 1; group <= kHuntGroups; ++group) {
    std::string text;
    for (const std::string& member : members_[static_cast<std::size_t>(group) - 1])
      text.append(text.empty() ? "" : "|").append(member);
    project.Set(kTable.section, KeyOf(kTable, group), text);
  }
}

}  // namespace hunt_group_editor

extern const Editor kHuntGroupEditor{"10 - Hunt Group",
                                     "groupofhunt",
                                     {"frmGrpHunt", "Hunt Group", "frmGroupOfHunt"},
                                     Make<hunt_group_editor::HuntGroupEditor>};

}  // namespace tarvok::editors
