#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "sections/ports/boss.h"

namespace tarvok::editors {
namespace boss_editor {

using boss::kTable;

/** "Boss and Secretary" (`frmBoss`): pairs of a boss and a secretary. The project stores their ports, the
 * table shows their numbers. Other numbers are stored as not set. */
class BossEditor : public FieldTableEditor {
 public:
  BossEditor(const EditorContext& context, const FormName& name)
      : FieldTableEditor(context, name, kTable, Columns(this), {.sort_by = {{1}}}) {
    LayOut();
  }

 protected:
  void Prepare(const IniText& project) override { numbers_ = PortNumbers(project); }

 private:
  static std::vector<FieldColumn> Columns(BossEditor* form);

  RowNames numbers_;
};

std::vector<FieldColumn> BossEditor::Columns(BossEditor* form) {
  std::vector<FieldColumn> columns;
  for (int field = boss::kBoss; field <= boss::kSecretary; ++field) {
    FieldColumn column = TypedColumn(field, std::string(StatementOf(kTable, field).name), DigitsRule(6));
    column.column.entry = Entry::kEditList;
    column.column.list_of = [form](int) { return form->numbers_.Names(); };
    column.shown = [form](std::string_view stored) { return form->numbers_.NameOf(stored); };
    column.names = [form](const auto& /*cells*/) {
      return NamedRows{&form->numbers_, kTable.fields[0].width};
    };
    columns.push_back(std::move(column));
  }
  return columns;
}

}  // namespace boss_editor

extern const Editor kBossEditor{
    "4 - Boss and Secretary", "boss", {"frmBoss", "Boss and Secretary"}, Make<boss_editor::BossEditor>};

}  // namespace tarvok::editors
