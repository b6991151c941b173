#pragma once

#include <string>
#include <vector>

#include "editing/repeat_list.h"
#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Account" (`frmAccount`): account codes with their passwords and permissions. */
class AccountEditor : public FieldTableEditor {
 public:
  AccountEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  bool MaySave() override;

 private:
  static std::vector<FieldColumn> Columns(AccountEditor* form);
  bool CheckAccounts();

  RepeatList repeats_;
  RowNames numbers_;
  std::vector<std::string> offered_;  // the numbers of ports, in the order of the ports
};

}  // namespace tarvok::editors
