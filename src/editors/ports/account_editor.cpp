#include <string>
#include <vector>

#include "editing/repeat_list.h"
#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "sections/ports/account.h"
#include "sections/ports/port_config.h"
#include "sections/routing/tenan.h"

namespace tarvok::editors {
namespace account_editor {

using namespace account;

/** "Account" (`frmAccount`): account codes with their passwords and permissions. */
class AccountEditor : public FieldTableEditor {
 public:
  AccountEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override {
    numbers_ = AssignNumbers(project);
    offered_ = PortNumbers(project).Names();
  }
  bool MaySave() override {
    return !CheckAccounts() ||
           context().questions.Ask("There are repeat Account. Do you still want to save?");
  }

 private:
  static std::vector<FieldColumn> Columns(AccountEditor* form);
  bool CheckAccounts();

  RepeatList repeats_;
  RowNames numbers_;
  std::vector<std::string> offered_;  // the numbers of ports, in the order of the ports
};

enum ColumnOf : int { kAccountColumn = 1, kPasswordColumn, kNumberColumn };

FieldColumn ListColumn(int field, std::string title, std::string overlay, std::vector<std::string> list) {
  return {.field = field,
          .column = {.title = std::move(title),
                     .entry = Entry::kList,
                     .list = std::move(list),
                     .overlay = std::move(overlay)}};
}

std::vector<FieldColumn> AccountEditor::Columns(AccountEditor* form) {
  FieldColumn number = ListColumn(kNumber, "Number", "cmbMask", {});
  number.column.list_of = [form](int) { return form->offered_; };
  number.shown = [form](std::string_view stored) { return form->numbers_.NameOf(stored); };
  // A reference to a deleted number is cleared by the next save.
  number.names = [form](const auto& /*cells*/) {
    return NamedRows{&form->numbers_, kTable.fields[kNumber - 1].width, false};
  };
  return {TypedColumn(kAccount, "Account", DigitsRule(6)),
          TypedColumn(kPassword, "Password", DigitsRule(4)),
          std::move(number),
          ListColumn(kConfig, "Config", "cmbMask2", NumberedEntries(1, kPortConfigRows)),
          ListColumn(kTenan, "Tenan", "cmbMask3", NumberedEntries(1, kTenants)),
          TypedColumn(kTime, "Time (sec)", DigitsRule(4))};
}

AccountEditor::AccountEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, kTable, Columns(this),
                       {.rows = RowCommands::kFixed, .sort_by = {{kAccountColumn}}}),
      repeats_(AddLabel({"lblRepeat"}, {}), AddEntries<ListBox>({"lsRepeat"}, "Repeats", {})) {
  Control& check = AddButton("cmdCheck", "Check &Number", [this] { CheckAccounts(); });
  LayOut({repeats_.Place()}, {layout::Of(check)});
}
bool AccountEditor::CheckAccounts() {
  std::vector<std::string> accounts;
  for (int row = 1; row <= grid().rows(); ++row) accounts.push_back(grid().Cell(row, kAccountColumn));
  return repeats_.Show(std::move(accounts), "No repeat Account", "Show repeat number :");
}
}  // namespace account_editor

extern const Editor kAccountEditor{
    "9 - Account", "account", {"frmAccount", "Account"}, Make<account_editor::AccountEditor>};

}  // namespace tarvok::editors
