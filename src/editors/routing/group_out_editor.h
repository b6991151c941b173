#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"
#include "sections/routing/group_out.h"

namespace tarvok::editors {

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

  Control& list_;
  Control& free_;
  Control& shown_;
  RowNames trunks_;
  std::vector<std::string> trunk_rows_;     // all trunks, as stored in members
  std::vector<std::string> free_rows_;      // shown in the list of free trunks
  std::vector<std::size_t> shown_members_;  // positions in the group of the shown members
  std::array<Group, kGroupsOut> groups_;
  int total_ = 0;
};

}  // namespace tarvok::editors
