#include "sections/ports/frmBoss.h"

#include "sections/ports/boss.h"
#include "store/field_list.h"

namespace tarvok {

using boss::kTable;

std::vector<FieldColumn> frmBoss::Columns(frmBoss* form) {
  std::vector<FieldColumn> columns;
  for (int field = boss::kBoss; field <= boss::kSecretary; ++field) {
    FieldColumn column = TypedColumn(
        field, std::string(kTable.fields[static_cast<std::size_t>(field) - 1].name), DigitsRule(6));
    column.column.entry = Entry::kEditList;
    column.column.list_of = [form](int) { return form->numbers_.Names(); };
    column.shown = [form](std::string_view stored) { return form->numbers_.NameOf(stored); };
    columns.push_back(std::move(column));
  }
  return columns;
}

frmBoss::frmBoss(const EditorContext& context, const FormName& name)
    : FieldTableForm(context, name, kTable, Columns(this), {.sort_by = {{1}}}) {
  LayOut();
}

/** A number that stands on no port is none. */
std::string frmBoss::RowText(int row) const {
  const FieldList before(StoredBefore(row));
  const auto port = [&](int field) {
    return numbers_.Kept(grid().Cell(row, field), kTable.fields[0].width, before[field]);
  };
  return port(boss::kBoss) + "|" + port(boss::kSecretary);
}

}  // namespace tarvok
