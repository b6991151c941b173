#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/used_by.h"
#include "project/references.h"
#include "sections/ports/port_def.h"
#include "sections/routing/group_out.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace group_out_editor {

using group_out::kTable;

/** "Group Out" (`frmGroupOut`): the trunks of each group out, in order, and the trunks that are in no group.
 * Saving clears the references of routes to groups without members. */
class GroupOutEditor : public EditorForm {
 public:
  GroupOutEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  /** The stored members of a group. Those that are no longer trunks are kept but not shown. */
  using Group = std::vector<std::string>;

  Group& group() { return groups_[static_cast<std::size_t>(list_.current)]; }
  void AddMembers();
  void DeleteMembers();
  void Show();

  ListBox& list_;
  ListBox& free_;
  ListBox& shown_;
  RowNames trunks_;
  std::vector<std::string> trunk_rows_;     // all trunks, as stored in members
  std::vector<std::string> free_rows_;      // shown in the list of free trunks
  std::vector<std::size_t> shown_members_;  // positions in the group of the shown members
  std::array<Group, kGroupsOut> groups_;
  int total_ = 0;
};

const Field& MemberStatement() {
  return kTable.fields[group_out::kMember - 1];
}

std::vector<std::string> MembersOf(std::string_view value) {
  std::vector<std::string> members;
  ForEachMember(value, [&](std::string_view member) { members.emplace_back(member); });
  return members;
}

GroupOutEditor::GroupOutEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name),
      list_(AddEntries<ListBox>({"lsGroup"}, "Groups out", LabelledRows(kTable).Names())),
      free_(AddEntries<ListBox>({"ListView1"}, "Select Port", {})),
      shown_(AddEntries<ListBox>({"ListView2"}, "Members", {})) {
  free_.many = shown_.many = true;
  list_.changed = [this] { Show(); };
  Control& add = AddButton("cmdAdd", "Add &Member", [this] { AddMembers(); });
  Control& remove = AddButton("cmdDel", "&Delete Member", [this] { DeleteMembers(); });
  constexpr const char* kMarks = "card/channel";
  SetLayout(layout::Column(
      {layout::Row(
           {layout::Group(list_.caption, {layout::Of(list_)}),
            layout::Group(shown_.caption, {layout::Note(kMarks), layout::Of(shown_), layout::Of(remove)}),
            layout::Group(free_.caption, {layout::Note(kMarks), layout::Of(free_), layout::Of(add)})}),
       OkAndCancel()}));
}

void GroupOutEditor::Load(const IniText& project) {
  trunks_ = {};
  trunk_rows_.clear();
  const auto& types = MemberStatement().target.stored;
  const RowNames ports = PortNames(project);
  const auto now =
      std::clamp<std::int64_t>(Val(project.Get(port_def::kTable.section, kNowKey)), 0, kPortRows);
  for (int port = 1; port <= now; ++port) {
    const std::string name = ports.NameOf(std::to_string(port));
    const std::string_view type = GetField(RowValue(project, port_def::kTable, port), port_def::kType);
    if (name.empty() || std::find(types.begin(), types.end(), type) == types.end()) continue;
    trunks_.Add(port, name);
    trunk_rows_.push_back(Padded(port, MemberStatement().width));
  }
  int members = 0;
  for (int n = 0; n < kGroupsOut; ++n) {
    Group& group = groups_[static_cast<std::size_t>(n)];
    group = MembersOf(RowValue(project, kTable, n + 1));
    members += static_cast<int>(group.size());
  }
  const std::int64_t now_members = Val(project.Get(kTable.section, kNowKey));
  total_ = std::max(members, static_cast<int>(std::clamp<std::int64_t>(now_members, 0, kGroupOutMembers)));
  list_.current = 0;
  Show();
}

/** Fills both lists and clears their choices. */
void GroupOutEditor::Show() {
  list_.current = std::max(list_.current, 0);
  for (ListBox* list : {&free_, &shown_}) {
    list->entries.clear();
    list->chosen.clear();
    list->current = kNoIndex;
  }
  free_rows_.clear();
  shown_members_.clear();
  std::set<std::int64_t> used;
  for (const Group& group : groups_) {
    for (const std::string& member : group) used.insert(Val(member));
  }
  for (const std::string& trunk : trunk_rows_) {
    if (used.contains(Val(trunk))) continue;
    free_rows_.push_back(trunk);
    free_.entries.push_back(trunks_.NameOf(trunk));
  }
  for (std::size_t i = 0; i < group().size(); ++i) {
    const std::string name = trunks_.NameOf(group()[i]);
    if (name.empty()) continue;
    shown_members_.push_back(i);
    shown_.entries.push_back(name);
  }
}

void GroupOutEditor::AddMembers() {
  const std::vector<int> chosen = free_.chosen;
  for (const int place : chosen) {
    if (total_ >= kGroupOutMembers) {
      context().questions.Box(kOverLimit, false);
      break;
    }
    group().push_back(free_rows_[static_cast<std::size_t>(place)]);
    ++total_;
    MarkChanged();
  }
  Show();
}

void GroupOutEditor::DeleteMembers() {
  const std::vector<int> chosen = shown_.chosen;
  for (auto place = chosen.rbegin(); place != chosen.rend(); ++place) {
    const auto member = shown_members_[static_cast<std::size_t>(*place)];
    group().erase(group().begin() + static_cast<std::ptrdiff_t>(member));
    --total_;
    MarkChanged();
  }
  Show();
}

bool GroupOutEditor::ShowPlace(std::string_view section, int row, int field) {
  if (!SameName(section, kTable.section) || row < 1 || row > kGroupsOut) return false;
  ChooseEntry(list_, row - 1);
  const auto member =
      std::find(shown_members_.begin(), shown_members_.end(), static_cast<std::size_t>(field) - 1);
  if (field > 0 && member != shown_members_.end())
    ChooseEntry(shown_, static_cast<int>(member - shown_members_.begin()));
  return true;
}

void GroupOutEditor::Write(IniEdit& project) {
  RowMoves emptied;
  for (int number = 1; number <= kGroupsOut; ++number) {
    const Group& group = groups_[static_cast<std::size_t>(number) - 1];
    const std::string_view before = RowValue(project.base(), kTable, number);
    std::string text;
    for (const std::string& member : group) text += (text.empty() ? "" : "|") + member;
    project.Set(kTable.section, KeyOf(kTable, number), group == MembersOf(before) ? before : text);
    if (group.empty()) emptied[number] = 0;
  }
  RecountMembers(project, kTable);
  WillClear(InWords(project.base(), kTable, RepairReferences(project, project.base(), kTable, emptied)));
}

}  // namespace group_out_editor

extern const Editor kGroupOutEditor{
    "15 - Group Out", "groupout", {"frmGroupOut", "Group Out"}, Make<group_out_editor::GroupOutEditor>};

}  // namespace tarvok::editors
