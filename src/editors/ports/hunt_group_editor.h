#pragma once

#include <array>
#include <string>
#include <vector>

#include "editing/editor_form.h"
#include "editors/uses.h"
#include "sections/ports/hunt_group.h"
#include "sections/row_fields.h"

namespace tarvok::editors {

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

  Control& groups_;
  Control& numbers_;
  std::array<Control*, kHuntGroups> lists_{};
  std::vector<int> rows_;                                      // number rows, in the order of `ListView1`
  std::array<std::vector<std::string>, kHuntGroups> members_;  // as stored, in list order
  int total_ = 0;
};

}  // namespace tarvok::editors
