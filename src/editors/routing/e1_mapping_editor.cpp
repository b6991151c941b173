#include <string>
#include <utility>
#include <vector>

#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "editors/routing/offered_rows.h"
#include "sections/routing/e1_map.h"
#include "sections/routing/e1_number.h"
#include "sections/row_fields.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::editors {
namespace e1_mapping_editor {

/**
 * "E1 Mapping" (`frmE1Map`): the ports of each E1 link. References to a link are updated when its row moves
 * and cleared when the link is emptied.
 */
class E1MappingEditor : public FieldTableEditor {
 public:
  E1MappingEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  void Write(IniEdit& project) override;
  bool IsRemoved(std::string_view /*value*/) const override { return false; }
  /** Emptied links cannot be referenced; links that were empty before do not change. */
  bool KeepsReferences(int row) const override {
    const bool is_empty = grid().IsBlank(row, e1_map::kStart) && grid().IsBlank(row, e1_map::kEnd);
    return !is_empty || IsUnused(statement(), StoredBefore(row));
  }

 private:
  static std::vector<FieldColumn> Columns(E1MappingEditor* form);

  RowNames ports_;
};

std::vector<FieldColumn> E1MappingEditor::Columns(E1MappingEditor* form) {
  using namespace e1_map;
  const auto& fields = kTable.fields;
  const std::span<const Choice> modes = fields[kMode - 1].choices;
  FieldColumn mode = ChoiceColumn(kMode, "Mode", fields[kMode - 1], "cmbMask3");
  mode.shown = [named = mode.shown, first = modes[0].shown](std::string_view stored) {
    const std::string name = named(stored);
    return name.empty() && !CellText(stored).empty() ? std::string(first) : name;
  };
  mode.stored = [named = mode.stored, first = modes[0].stored](std::string_view cell) {
    return cell.empty() ? std::string(first) : named(cell);
  };
  const auto offered = [form](int) { return form->ports_.Names(); };
  FieldColumn start = ReferenceColumn(kStart, "Start", fields[kStart - 1], form->ports_);
  FieldColumn end = ReferenceColumn(kEnd, "End", fields[kEnd - 1], form->ports_, "cmbMask2");
  start.column.list_of = offered;
  end.column.list_of = offered;
  return {std::move(start), std::move(end), std::move(mode)};
}

E1MappingEditor::E1MappingEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, e1_map::kTable, Columns(this),
                       {.rows = RowCommands::kFixed, .sort_by = {{e1_map::kStart}}}) {
  LayOut();
}

void E1MappingEditor::Prepare(const IniText& project) {
  ports_ = PortNames(project, statement().fields[e1_map::kStart - 1].target.stored[0]);
}

void E1MappingEditor::Write(IniEdit& project) {
  FieldTableEditor::Write(project);
  project.Set(statement().section, kNowKey, std::to_string(grid().rows()));
}

}  // namespace e1_mapping_editor

extern const Editor kE1MappingEditor{
    "16 - E1 Mapping", "e1mapping", {"frmE1Map", "E1 Mapping"}, Make<e1_mapping_editor::E1MappingEditor>};

}  // namespace tarvok::editors
