#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "sections/routing/tbl_route.h"
#include "sections/rows.h"

namespace tarvok::editors {
namespace pbx_link_editor {

using namespace tbl_route;

/** "PBX Link Table" (`frmSetRoute`): the links of networked exchanges: this exchange's ID, and the card and
 * device that reach each of the others. */
class PbxLinkEditor : public FieldTableEditor {
 public:
  PbxLinkEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static std::vector<FieldColumn> Columns();

  ComboBox& pbx_id_;
  ComboBox& gateway_;
};

std::vector<std::string> NumbersOf(const Field& statement) {
  return NumberedEntries(statement.low, statement.high);
}

/** Chooses the entry with the number, or else the first one. */
void ChooseNumber(ComboBox& combo, std::string_view stored) {
  combo.Choose(std::to_string(Val(stored)));
  combo.current = std::max(combo.current, 0);
}

std::vector<FieldColumn> PbxLinkEditor::Columns() {
  FieldColumn card{.field = kCard,
                   .column = {.title = "Card ID",
                              .entry = Entry::kList,
                              .list = NumbersOf(kTable.fields[kCard - 1]),
                              .overlay = "cmbMask"}};
  card.shown = [none = kTable.fields[kCard - 1].unset_as](std::string_view stored) {
    return stored == none ? std::string() : CellText(stored);
  };
  FieldColumn device{.field = kDevice,
                     .column = {.title = "Device",
                                .entry = Entry::kList,
                                .list = NumbersOf(kTable.fields[kDevice - 1]),
                                .overlay = "cmbMask2"}};
  return {std::move(card), std::move(device)};
}

PbxLinkEditor::PbxLinkEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, kTable, Columns(), {}),
      pbx_id_(AddEntries<ComboBox>({"cmbPID"}, {}, NumbersOf(kPidTable.fields[0]))),
      gateway_(AddEntries<ComboBox>({"cmbGW"}, {}, NumbersOf(kGatewayTable.fields[0]))) {
  LayOut({layout::Row(
      {layout::Field("PBX &ID :", pbx_id_), layout::Field("&Gateway :", gateway_), layout::Stretch()})});
}

void PbxLinkEditor::Prepare(const IniText& project) {
  ChooseNumber(pbx_id_, KeyValue(project, kPidTable));
  ChooseNumber(gateway_, KeyValue(project, kGatewayTable));
}

void PbxLinkEditor::Write(IniEdit& project) {
  FieldTableEditor::Write(project);
  project.Set(kPidTable.section, kPidTable.key, pbx_id_.Chosen());
  project.Set(kGatewayTable.section, kGatewayTable.key, gateway_.Chosen());
}

}  // namespace pbx_link_editor

extern const Editor kPbxLinkEditor{"27 - PBX Link Table",
                                   "setroute",
                                   {"frmSetRoute", "PBX Link Table"},
                                   Make<pbx_link_editor::PbxLinkEditor>};

}  // namespace tarvok::editors
