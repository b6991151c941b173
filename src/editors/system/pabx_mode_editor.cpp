#include <array>
#include <string>
#include <utility>
#include <vector>

#include "editing/editor_form.h"
#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/system/box_values.h"
#include "sections/ports/assign.h"
#include "sections/rows.h"
#include "sections/system/pabx_mode.h"

namespace tarvok::editors {
namespace pabx_mode_editor {

using namespace pabx_mode;

/** "PABX Mode" (`frmPABXMode`): switches for the whole exchange. `Check1` are the flags, `Option1(0)` and (1)
 * the manual mode, `Option1(2)` and (3) the target of busy DID calls. */
class PabxModeEditor : public EditorForm {
 public:
  PabxModeEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  void AddFlags();
  void FillNumbers(const IniText& project);
  /** Shows or hides the controls that depend on other switches. */
  void Follow();
  CheckBox& Flag(int field);

  Option* day_;
  Option* night_;
  Option* message_;
  Option* number_;
  ComboBox* numbers_;
  TextBox* limit_;
  ComboBox* revision_;
  std::vector<std::string> ports_;  // by entry of cmbNum: the port of its number row
};

/** The flag fields and the indices of their boxes. */
constexpr std::pair<int, int> kFlags[] = {
    {kPrintCallRecord, 1}, {kCheckCredit, 2},       {kManual, 3},         {kCheckBadCo, 4},
    {kWarningTone, 5},     {kPaperFeed, 6},         {kCheckDuplicate, 7}, {kRecordLastPerson, 8},
    {kVmCheckMapDigit, 9}, {kCheckClassMemory, 10}, {kOnCoWhenX, 11},     {kDidBusyTransfer, 12},
    {kPrintWakeup, 13},    {kTrunkToTrunk, 14},     {kIntrusionTone, 15}};
constexpr int kHighestLimit = 254;

bool FitsLimit(std::string_view text, char key) {
  return !text.empty() || key != '0';
}

PabxModeEditor::PabxModeEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name) {
  AddFlags();
  const auto shown = [](int field, std::size_t choice) {
    return std::string(StatementOf(kTable, field).choices[choice].shown);
  };
  day_ = &AddOption({"Option1", 0}, shown(kManualMode, 0), 0);
  night_ = &AddOption({"Option1", 1}, shown(kManualMode, 1), 0);
  message_ = &AddOption({"Option1", 2}, shown(kTransferTarget, 1), 1);
  number_ = &AddOption({"Option1", 3}, shown(kTransferTarget, 0), 1);
  numbers_ = &AddEntries<ComboBox>({"cmbNum"}, "Extention Number", {});
  EntryRule limit = AnyDigits();
  limit.fits = FitsLimit;
  limit_ = &AddText({"txtT2T"}, "", limit);
  revision_ =
      &AddEntries<ComboBox>({"cmbRevision"}, "", {shown(kPowerRevision, 0), shown(kPowerRevision, 1)});
  const auto boxes = [&](std::initializer_list<int> fields) {
    std::vector<FormLayout> parts;
    for (const int field : fields) parts.push_back(layout::Of(Flag(field)));
    return parts;
  };
  std::vector<FormLayout> manual = boxes({kManual});
  manual.push_back(layout::Row({layout::Of(*day_), layout::Of(*night_), layout::Stretch()}));
  std::vector<FormLayout> transfer = boxes({kDidBusyTransfer});
  transfer.push_back(layout::Row({layout::Of(*number_), layout::Of(*numbers_), layout::Stretch()}));
  transfer.push_back(layout::Of(*message_));
  std::vector<FormLayout> trunks = boxes({kTrunkToTrunk});
  trunks.push_back(layout::Field(LabelOf(kTable, kTrunkTimeLimit), *limit_, "Minute"));
  for (FormLayout& part : boxes({kCheckBadCo, kWarningTone, kIntrusionTone, kOnCoWhenX}))
    trunks.push_back(std::move(part));
  SetLayout(layout::Column(
      {layout::Row(
           {layout::Column(
                {layout::Group("Call Records", boxes({kPrintCallRecord, kPaperFeed, kCheckDuplicate,
                                                      kRecordLastPerson, kPrintWakeup})),
                 layout::Group("Day and Night", std::move(manual)),
                 layout::Group("Power", {layout::Field(LabelOf(kTable, kPowerRevision), *revision_)})}),
            layout::Column(
                {layout::Group("Trunks", std::move(trunks)),
                 layout::Group("Calls", boxes({kCheckCredit, kCheckClassMemory, kVmCheckMapDigit})),
                 layout::Group("Busy DID Calls", std::move(transfer))})}),
       layout::Stretch(), OkAndCancel()}));
}

void PabxModeEditor::AddFlags() {
  for (const auto& [field, index] : kFlags) {
    CheckBox& box = AddCheck({"Check1", index}, std::string(StatementOf(kTable, field).name));
    box.changed = [this] { Follow(); };
  }
}

CheckBox& PabxModeEditor::Flag(int field) {
  int index = 0;
  for (const auto& [flag, box] : kFlags) {
    if (flag == field) index = box;
  }
  return *Find<CheckBox>({"Check1", index});
}

void PabxModeEditor::Follow() {
  day_->visible = night_->visible = Flag(kManual).on;
  message_->enabled = number_->enabled = numbers_->enabled = Flag(kDidBusyTransfer).on;
}

void PabxModeEditor::FillNumbers(const IniText& project) {
  numbers_->entries.clear();
  ports_.clear();
  for (int row = 1; row <= kAssignRows; ++row) {
    const FieldList number(RowValue(project, assign::kTable, row));
    if (number[assign::kType] != kPortType) continue;
    numbers_->entries.emplace_back(CellText(number[assign::kNumber]));
    ports_.push_back(FieldText(number[assign::kValue]));
  }
}

void PabxModeEditor::Load(const IniText& project) {
  FillNumbers(project);
  const FieldList fields(KeyValue(project, kTable));
  if (fields.count() > 0) {
    for (const auto& [field, index] : kFlags) Flag(field).on = Val(fields[field]) != 0;
    night_->on = fields[kManualMode] == "1";
    day_->on = !night_->on;
    number_->on = fields[kTransferTarget] == "0";
    message_->on = !number_->on;
    limit_->text = CellText(fields[kTrunkTimeLimit]);
    revision_->current = fields[kPowerRevision] == "1" ? 1 : 0;
    const std::int64_t port = Val(fields[kTransferPort]);
    for (std::size_t i = 0; i < ports_.size() && port > 0; ++i) {
      if (Val(ports_[i]) != port) continue;
      numbers_->current = static_cast<int>(i);
      break;
    }
  }
  Follow();
}

void PabxModeEditor::Write(IniEdit& project) {
  std::array<std::string, kPowerRevision> fields;
  const auto put = [&](int field, std::string_view text) {
    fields[static_cast<std::size_t>(field) - 1] = text;
  };
  for (const auto& [field, index] : kFlags) put(field, FlagText(Flag(field)));
  put(kManualMode, FlagText(*night_));
  put(kTrunkTimeLimit, FieldText(AtMost(limit_->text, kHighestLimit)));
  put(kTransferTarget, number_->on ? "0" : "1");
  const bool chosen = numbers_->current >= 0;
  put(kTransferPort, chosen ? ports_[static_cast<std::size_t>(numbers_->current)] : std::string(kUnset));
  put(kPowerRevision, revision_->current == 1 ? "1" : "0");
  std::string list;
  for (const std::string& field : fields) list.append(list.empty() ? "" : "|").append(field);
  project.Set(kTable.section, kTable.key, list);
}

}  // namespace pabx_mode_editor

extern const Editor kPabxModeEditor{
    "23 - PABX Mode", "pabxmode", {"frmPABXMode", "PABX Mode"}, Make<pabx_mode_editor::PabxModeEditor>};

}  // namespace tarvok::editors
