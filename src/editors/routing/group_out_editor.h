#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"
#include "sections/routing/group_out.h"

namespace tarvok::editors {

/** `frmGroupOut`: the trunks of the groups out, in their order, and the trunks that are in no group. A route that
 * names a group without members names none any more once the form is saved. */
class GroupOutEditor : public EditorForm {
 public:
  GroupOutEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  /** The members of a group as they are written. Some may be no trunks any more: they stay, unseen. */
  using Group = std::vector<std::string>;

  Group& group() { return groups_[static_cast<std::size_t>(list_.current)]; }
  void AddMembers();
  void DeleteMembers();
  void Show();

  Control& list_;
  Control& free_;
  Control& shown_;
  RowNames trunks_;
  std::vector<std::string> trunk_rows_;     // all trunks, as members are written
  std::vector<std::string> free_rows_;      // what the free list shows
  std::vector<std::size_t> shown_members_;  // places in the group of what the member list shows
  std::array<Group, kGroupsOut> groups_;
  int total_ = 0;
};

}  // namespace tarvok::editors
