#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editors/routing/class_editor.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Ban Number Group" (`frmCORGroup`): the classes of each group. */
class BanNumberGroupEditor : public ClassEditor {
 public:
  BanNumberGroupEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static std::vector<Column> Columns(BanNumberGroupEditor* form);

  std::vector<std::string> offered_;
};

}  // namespace tarvok::editors
