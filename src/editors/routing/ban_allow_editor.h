#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editors/routing/class_editor.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Ban/Allow Number" (`frmClassDigit`): the numbers that each class bans and allows. */
class BanAllowEditor : public ClassEditor {
 public:
  BanAllowEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static std::vector<Column> Columns(BanAllowEditor* form);
  /** True if the column holds as many numbers as a class may have. */
  bool IsFull(int column, int most) const;
};

}  // namespace tarvok::editors
