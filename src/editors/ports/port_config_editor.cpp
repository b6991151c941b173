#include <array>
#include <string>

#include "editing/editor_form.h"
#include "editors/editors.h"
#include "editors/field_columns.h"
#include "sections/ports/number_tables.h"
#include "sections/ports/port_config.h"
#include "sections/routing/class_group.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace port_config_editor {

using namespace port_config;

/**
 * "Port Config" (`frmPortConfig_Def`): the port profiles. All are held as texts, "" for a field that is not
 * set. The controls show one of them, which is updated when it is left.
 */
class PortConfigEditor : public EditorForm {
 public:
  PortConfigEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void BeforeWrite() override { TakeControls(); }
  void Write(IniEdit& project) override;

 private:
  static constexpr std::size_t kFields = port_config::kRingTransfer;
  static constexpr std::size_t kReverseChoices = 4;

  void AddControls();
  void LayOut();
  void ShowProfile();
  void ShowField(std::size_t index, const std::string& text);
  void TakeControls();
  void TakeField(std::size_t index, std::string& text) const;
  TextBox& BoxAt(std::size_t index) const { return static_cast<TextBox&>(*controls_[index]); }
  CheckBox& CheckAt(std::size_t index) const { return static_cast<CheckBox&>(*controls_[index]); }
  ComboBox& ListAt(std::size_t index) const { return static_cast<ComboBox&>(*controls_[index]); }

  std::array<std::array<std::string, kFields>, kPortConfigRows> profiles_;
  std::vector<std::string> groups_;  // the groups of classes that are offered
  std::size_t shown_ = 0;            // index of the profile shown in the controls

  ListBox& list_;
  CheckBox& link_trunk_;
  std::array<Control*, kFields> controls_{};  // by field from 0; the first option for a group of options
  std::array<Option*, kReverseChoices> reverse_{};
  std::array<bool, kFields> chosen_{};  // by field from 0: the user has chosen an entry in the shown profile
};

constexpr std::string_view kOn = "1";
constexpr std::string_view kOff = "0";
constexpr std::string_view kMinute = "Minute";
constexpr std::string_view kSecond = "Second";
constexpr int kHighestGroup = 99;  // highest with two digits

enum class Kind { kService, kChoice, kTime, kDigits, kFlag, kReverse, kTrunk, kRing };

/** How a field is edited. */
struct FieldForm {
  const char* control;
  std::string_view unset;  // stored if the field is not set
  Kind kind;
  bool padded = false;         // stored with two digits
  std::string_view unit = {};  // of the box
};
constexpr FieldForm kForms[] = {
    {"cmbClass_d", kUnset, Kind::kService, true},
    {"cmbClass_n", kUnset, Kind::kService, true},
    {"cmbTransfer", kUnset, Kind::kChoice},
    {"cmbCID", kUnset, Kind::kChoice},
    {"cmbConnect", kOff, Kind::kChoice},
    {"cmbMusic", kOff, Kind::kChoice},
    {"txtSetCO", kOff, Kind::kTime, false, kMinute},
    {"txtSetTOIn", kOff, Kind::kTime, false, kMinute},
    {"cmbOE", kOff, Kind::kChoice},
    {"txtHotOper", kUnset, Kind::kDigits},
    {"chkHook", kOff, Kind::kFlag},
    {"optReverse", kOff, Kind::kReverse},
    {"chkFAX", kOff, Kind::kFlag},
    {"chkNotPrint", kOff, Kind::kFlag},
    {"cmbTrunkType", kOff, Kind::kTrunk},
    {"chkWarning", kOff, Kind::kFlag},
    {"txtTOhangon", kOff, Kind::kTime, false, kSecond},
    {"cmbHoldCOR", kUnset, Kind::kService},
    {"cmbTransTO", kUnset, Kind::kRing},
};
static_assert(std::size(kForms) == kRingTransfer);

constexpr std::size_t At(int field) {
  return static_cast<std::size_t>(field) - 1;
}

std::string NameOf(std::size_t index) {
  return std::string(kTable.fields[index].name);
}

/** The entries of the field's list. */
std::vector<std::string> EntriesOf(std::size_t index) {
  const Field& statement = kTable.fields[index];
  std::vector<std::string> entries;
  for (const Choice& choice : statement.choices) {
    if (entries.empty() || entries.back() != choice.shown) entries.emplace_back(choice.shown);
  }
  if (index == At(kTransferLine)) std::swap(entries.front(), entries.back());
  if (statement.kind != FieldKind::kNumber) return entries;
  const std::vector<std::string> numbers = NumberedEntries(1, statement.high);
  entries.insert(entries.begin() + 1, numbers.begin(), numbers.end());
  return entries;
}

std::string StoredOf(std::size_t index, std::string_view shown) {
  for (const Choice& choice : kTable.fields[index].choices) {
    if (choice.shown == shown) return std::string(choice.stored);
  }
  return std::string(shown);
}

std::string GroupText(int group) {
  return std::string(class_group::kTable.label) + " " + Padded(group, class_group::kTable.rows.width);
}

PortConfigEditor::PortConfigEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name),
      list_(AddEntries<ListBox>({"lsPortConfig"}, "Profiles", NumberedEntries(1, kPortConfigRows))),
      link_trunk_(AddCheck({"chkLinkTrunk"}, NameOf(At(kLinkTrunk)) + " :")) {
  AddControls();
  LayOut();
  list_.current = 0;
  list_.changed = [this] {
    TakeControls();
    if (list_.current >= 0) shown_ = static_cast<std::size_t>(list_.current);
    ShowProfile();
  };
  link_trunk_.changed = [this] { controls_[At(kLinkTrunk)]->enabled = link_trunk_.on; };
}

void PortConfigEditor::AddControls() {
  for (std::size_t index = 0; index < kFields; ++index) {
    const ControlId id{kForms[index].control};
    Control*& control = controls_[index];
    switch (kForms[index].kind) {
      case Kind::kService:
        control = &AddEntries<ComboBox>(id, NameOf(index), {});
        control->changed = [this, index] { chosen_[index] = true; };
        break;
      case Kind::kChoice:
      case Kind::kRing:
        control = &AddEntries<ComboBox>(id, NameOf(index), EntriesOf(index));
        break;
      case Kind::kTime: {
        TextBox& box = AddText(id, NameOf(index), ByteRule());
        box.entered = [&box] { box.selected = box.text == kOff; };  // the first digit replaces it
        control = &box;
        break;
      }
      case Kind::kDigits:
        control = &AddText(id, NameOf(index), DigitsRule(kTable.fields[index].high));
        break;
      case Kind::kFlag:
        control = &AddCheck(id, NameOf(index));
        break;
      case Kind::kTrunk:
        control = &AddEntries<ComboBox>(id, NameOf(index), NumberedEntries(1, kLinkTrunks));
        break;
      case Kind::kReverse:
        for (std::size_t n = 0; n < kReverseChoices; ++n) {
          reverse_[n] =
              &AddOption({id.name, static_cast<int>(n)}, std::string(kTable.fields[index].choices[n].shown));
        }
        control = reverse_[0];
        break;
    }
  }
}

void PortConfigEditor::LayOut() {
  const auto field = [&](int n) {
    const std::size_t index = At(n);
    const std::string_view end = kForms[index].kind == Kind::kRing ? ":" : " :";
    return layout::Field(NameOf(index).append(end), *controls_[index], std::string(kForms[index].unit));
  };
  const auto box = [&](int n) { return layout::Of(*controls_[At(n)]); };
  std::vector<FormLayout> reverse;
  for (Option* option : reverse_) reverse.push_back(layout::Of(*option));
  FormLayout left = layout::Column(
      {layout::Group("Class of service", {field(kServiceDay), field(kServiceNight), field(kHoldCut)}),
       layout::Group("Line",
                     {field(kTransferLine), field(kCid), field(kConnect), field(kMusic), field(kOverride),
                      field(kHotline), layout::Row({layout::Of(link_trunk_), box(kLinkTrunk)})})});
  FormLayout right =
      layout::Column({layout::Group("Times", {field(kCoTimeout), field(kCoTimeoutIncoming),
                                              field(kHangOnTimeout), field(kRingTransfer)}),
                      layout::Group(NameOf(At(kLineReverse)), {layout::Grid(2, std::move(reverse))}),
                      layout::Group("Options", {box(kHook), box(kFax), box(kDoNotPrint), box(kWarning)})});
  SetLayout(layout::Column(
      {layout::Row({layout::Group("Profile", {layout::Of(list_)}), std::move(left), std::move(right)}),
       OkAndCancel()}));
}

bool PortConfigEditor::ShowPlace(std::string_view section, int row, int /*field*/) {
  if (!SameName(section, kTable.section) || row < 1 || row > kPortConfigRows) return false;
  ChooseEntry(list_, row - 1);
  return true;
}

void PortConfigEditor::Load(const IniText& project) {
  std::vector<std::string> groups = {{}};
  for (int group = 1; group <= class_group::kTable.rows.last; ++group) {
    if (!RowValue(project, class_group::kTable, group).empty()) groups.push_back(GroupText(group));
  }
  groups_ = std::move(groups);
  for (int row = 1; row <= kPortConfigRows; ++row) {
    const FieldList fields(RowValue(project, kTable, row));
    auto& profile = profiles_[static_cast<std::size_t>(row) - 1];
    for (std::size_t index = 0; index < kFields; ++index)
      profile[index] = CellText(fields[static_cast<int>(index) + 1]);
  }
  ShowProfile();
}

void PortConfigEditor::ShowProfile() {
  for (std::size_t index = 0; index < kFields; ++index) ShowField(index, profiles_[shown_][index]);
}

void PortConfigEditor::ShowField(std::size_t index, const std::string& text) {
  const Field& statement = kTable.fields[index];
  const std::int64_t number = Val(text);
  chosen_[index] = false;
  switch (kForms[index].kind) {
    case Kind::kService:
      // A group without classes is not offered, but a profile may refer to it.
      ListAt(index).entries = groups_;
      ListAt(index).ChooseOrJoin(number < 1 || number > kHighestGroup ? std::string()
                                                                      : GroupText(static_cast<int>(number)));
      return;
    case Kind::kChoice:
      ListAt(index).Choose(Canonical(statement, text));
      if (ListAt(index).current == kNoIndex) ListAt(index).Choose(Canonical(statement, kOff));
      return;
    case Kind::kRing:
      // A number that is not offered may come from an exchange.
      ListAt(index).entries = EntriesOf(index);
      ListAt(index).current = kNoIndex;
      if (number > 0) ListAt(index).ChooseOrJoin(Canonical(statement, text));
      return;
    case Kind::kTime:
      BoxAt(index).text = text.empty() ? std::string(kOff) : text;
      BoxAt(index).selected = false;
      return;
    case Kind::kDigits:
      BoxAt(index).text = text;
      return;
    case Kind::kFlag:
      CheckAt(index).on = text == kOn;
      return;
    case Kind::kTrunk:
      link_trunk_.on = number >= 1 && number <= kLinkTrunks;
      ListAt(index).enabled = link_trunk_.on;
      ListAt(index).current = link_trunk_.on ? static_cast<int>(number) - 1 : kNoIndex;
      return;
    case Kind::kReverse: {
      const bool known = number > 0 && number < static_cast<std::int64_t>(kReverseChoices);
      for (std::size_t n = 0; n < kReverseChoices; ++n)
        reverse_[n]->on = n == static_cast<std::size_t>(known ? number : 0);
      return;
    }
  }
}

void PortConfigEditor::TakeControls() {
  for (std::size_t index = 0; index < kFields; ++index) TakeField(index, profiles_[shown_][index]);
}

void PortConfigEditor::TakeField(std::size_t index, std::string& text) const {
  switch (kForms[index].kind) {
    case Kind::kService: {
      const std::string_view chosen = ListAt(index).Chosen();
      // A group with more than two digits cannot be shown; it stays until another entry is chosen.
      if (chosen.empty() && !chosen_[index] && Val(text) > kHighestGroup) return;
      text = chosen.empty() ? chosen : Trim(chosen.substr(chosen.size() - 2));
      return;
    }
    case Kind::kChoice:
    case Kind::kRing: {
      const std::string_view chosen = ListAt(index).Chosen();
      if (!chosen.empty()) {
        text = StoredOf(index, chosen);
      } else if (kForms[index].kind == Kind::kChoice) {
        text = kOff;
      }
      return;
    }
    case Kind::kTime:
      text = BoxAt(index).text.empty() ? std::string(kOff) : BoxAt(index).text;
      return;
    case Kind::kDigits:
      text = BoxAt(index).text;
      return;
    case Kind::kFlag:
      text = CheckAt(index).on ? kOn : kOff;
      return;
    case Kind::kTrunk:
      text = link_trunk_.on ? std::to_string(ListAt(index).current + 1) : std::string(kOff);
      return;
    case Kind::kReverse:
      text = kOff;
      for (std::size_t n = 1; n < kReverseChoices; ++n) {
        if (reverse_[n]->on) text = std::to_string(n);
      }
      return;
  }
}

void PortConfigEditor::Write(IniEdit& project) {
  for (int row = 1; row <= kPortConfigRows; ++row) {
    std::string value;
    for (std::size_t index = 0; index < kFields; ++index) {
      const FieldForm& form = kForms[index];
      std::string text = profiles_[static_cast<std::size_t>(row) - 1][index];
      if (text.empty()) {
        text = form.unset;
      } else if (form.padded && ReadNumber(text).is_number) {
        text = Padded(Val(text), 2);
      }
      value.append(index > 0 ? "|" : "").append(text);
    }
    StoreRow(project, kTable, row, value);
  }
}

}  // namespace port_config_editor

extern const Editor kPortConfigEditor{.text = "3 - Port Config",
                                      .key = "portconfig",
                                      .name = {"frmPortConfig_Def", "Port Config", "frmPortConfigDefine"},
                                      .make = Make<port_config_editor::PortConfigEditor>,
                                      .compared = "frmPortConfigDef"};

}  // namespace tarvok::editors
