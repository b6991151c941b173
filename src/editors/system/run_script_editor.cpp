#include <array>

#include "editing/editor_form.h"
#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/system/box_values.h"
#include "sections/rows.h"
#include "sections/system/run_script.h"

namespace tarvok::editors {
namespace run_script_editor {

/** "Run Script" (`frmRunScript`): the numbers of the scripts for seven events, `txtRunScript(0)` to (6). */
class RunScriptEditor : public EditorForm {
 public:
  RunScriptEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  std::array<TextBox*, kScriptEvents> boxes_{};
};

constexpr int kHighestScript = 510;
constexpr const char* kNote =
    "** You have to get Run Script ID from Setup VM && DISA Program (ID Not over 510) **";

RunScriptEditor::RunScriptEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name) {
  std::vector<FormLayout> fields;
  for (int event = 0; event < kScriptEvents; ++event) {
    TextBox& box = AddText({"txtRunScript", event}, "", AnyDigits());
    boxes_[static_cast<std::size_t>(event)] = &box;
    fields.push_back(layout::Field(LabelOf(run_script::kTable, event + 1), box));
  }
  SetLayout(layout::Column({layout::Group("Script at each event", std::move(fields)), layout::Note(kNote),
                            layout::Stretch(), OkAndCancel()}));
}

void RunScriptEditor::Load(const IniText& project) {
  const FieldList scripts(KeyValue(project, run_script::kTable));
  int field = 0;
  for (TextBox* box : boxes_) box->text = CellText(scripts[++field]);
}

void RunScriptEditor::Write(IniEdit& project) {
  const Table& table = run_script::kTable;
  std::string list;
  for (const TextBox* box : boxes_) list += FieldText(AtMost(box->text, kHighestScript)) + "|";
  const bool none = list == table.empty_rows.front();
  project.Set(table.section, table.key, none ? std::string() : list);
}

}  // namespace run_script_editor

extern const Editor kRunScriptEditor{
    "26 - Run Script", "runscript", {"frmRunScript", "Run Script"}, Make<run_script_editor::RunScriptEditor>};

}  // namespace tarvok::editors
