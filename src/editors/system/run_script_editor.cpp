#include "editors/system/run_script_editor.h"

#include "editors/field_columns.h"
#include "editors/system/system_forms.h"
#include "sections/rows.h"

namespace tarvok::editors {
namespace {

constexpr int kHighestScript = 510;
constexpr const char* kNote =
    "** You have to get Run Script ID from Setup VM && DISA Program (ID Not over 510) **";

}  // namespace

RunScriptEditor::RunScriptEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name) {
  std::vector<FormLayout> fields;
  for (int event = 0; event < kScriptEvents; ++event) {
    Control& box = AddText({"txtRunScript", event}, "", AnyDigits());
    boxes_[static_cast<std::size_t>(event)] = &box;
    fields.push_back(layout::Field(LabelOf(run_script::kTable, event + 1), box));
  }
  SetLayout(layout::Column({layout::Group("Script at each event", std::move(fields)), layout::Note(kNote),
                            layout::Stretch(), OkAndCancel()}));
}

void RunScriptEditor::Load(const IniText& project) {
  const FieldList scripts(KeyValue(project, run_script::kTable));
  int field = 0;
  for (Control* box : boxes_) box->text = CellText(scripts[++field]);
}

void RunScriptEditor::Write(IniEdit& project) {
  const Table& table = run_script::kTable;
  std::string list;
  for (const Control* box : boxes_) list += FieldText(AtMost(box->text, kHighestScript)) + "|";
  const bool none = list == table.empty_rows.front();
  project.Set(table.section, table.key, none ? std::string() : list);
}

}  // namespace tarvok::editors
