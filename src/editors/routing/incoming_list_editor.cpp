#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "editors/routing/offered_rows.h"
#include "sections/routing/incoming_list.h"
#include "sections/row_fields.h"
#include "sections/rows.h"

namespace tarvok::editors {
namespace incoming_list_editor {

using namespace incoming_list;

/** "Incoming List" (`frmIncomingLst`): the destinations of incoming calls. Saving sorts the rows by name and
 * updates the ports that refer to them. */
class IncomingListEditor : public FieldTableEditor {
 public:
  IncomingListEditor(const EditorContext& context, const FormName& name)
      : FieldTableEditor(context, name, kTable, Columns(this),
                         {.rows = RowCommands::kGrow, .sort_by = {{kName}}}) {
    LayOut();
  }

 protected:
  void Prepare(const IniText& project) override;
  int RowsToShow(const IniText& project) const override;
  void BeforeWrite() override { Sort(true); }
  void Write(IniEdit& project) override;
  bool KeepsReferences(int row) const override;

 private:
  static std::vector<FieldColumn> Columns(IncomingListEditor* form);

  RowNames numbers_;
  std::vector<std::string> offered_;
};

constexpr int kDestinations[] = {kNum1, kNum2, kNum3};

/** "Max", limited to the size of the section. */
int MostRows(const IniText& project) {
  const std::int64_t most = Val(project.Get(kTable.section, kMaxKey));
  return most < 1 || most > kIncomingRows ? kIncomingRows : static_cast<int>(most);
}

std::vector<FieldColumn> IncomingListEditor::Columns(IncomingListEditor* form) {
  const auto statement = [](int field) -> const Field& { return StatementOf(kTable, field); };
  std::vector<FieldColumn> columns = {TypedColumn(kName, "Name", TextRule(0))};
  for (const int field : kDestinations) {
    FieldColumn number =
        ReferenceColumn(field, std::string(statement(field).name), statement(field), form->numbers_);
    number.column.list_of = [form, named = number.column.list](int) {
      std::vector<std::string> entries = form->offered_;
      entries.insert(entries.end(), named.begin(), named.end());
      return entries;
    };
    // A reference to a deleted number is cleared by the next save.
    number.names = [form, width = statement(field).width](const auto& /*cells*/) {
      return NamedRows{&form->numbers_, width, false};
    };
    columns.push_back(std::move(number));
  }
  columns.push_back(LimitedColumn(kTimeOut, "Time Out", statement(kTimeOut), LimitRule()));
  return columns;
}

void IncomingListEditor::Prepare(const IniText& project) {
  numbers_ = AssignNumbers(project);
  offered_ = OfferedNumbers(project);
  grid().SetMost(MostRows(project));
}

/** "Max", or more if there are rows in use above it. */
int IncomingListEditor::RowsToShow(const IniText& project) const {
  int rows = MostRows(project);
  for (int row = rows + 1; row <= kIncomingRows; ++row) {
    if (!RowValue(project, kTable, row).empty()) rows = row;
  }
  return rows;
}

/** Emptied rows cannot be referenced; rows that were empty before do not change. */
bool IncomingListEditor::KeepsReferences(int row) const {
  return !grid().IsBlank(row) || IsUnused(kTable, StoredBefore(row));
}

void IncomingListEditor::Write(IniEdit& project) {
  FieldTableEditor::Write(project);
  project.Set(kTable.section, kNowKey, std::to_string(grid().rows()));
}

}  // namespace incoming_list_editor

extern const Editor kIncomingListEditor{"11 - Incoming List",
                                        "incominglist",
                                        {"frmIncomingLst", "Incoming List"},
                                        Make<incoming_list_editor::IncomingListEditor>};

}  // namespace tarvok::editors
