#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "editing/editor_form.h"
#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/system/box_values.h"
#include "sections/rows.h"
#include "sections/system/billing_mode.h"

namespace tarvok::editors {
namespace billing_mode_editor {

using namespace billing_mode;

/** "Billing Mode" (`frmBillingMode`): how calls are charged, and the country, which decides local codes and
 * the unit. */
class BillingModeEditor : public EditorForm {
 public:
  BillingModeEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  bool MaySave() override;
  void Write(IniEdit& project) override;

 private:
  FormLayout CountryGroup();
  FormLayout AmountField(int field);
  FormLayout Switches(std::string title, const std::vector<int>& fields);
  std::string ValidCountry(const IniText& project);
  void FillCountries(std::string_view country);
  void ShowCountry();
  std::string CountryNumber() const;
  std::string LocalCode() const;
  std::string FieldOf(int field);
  TextBox& BoxOf(int field);
  CheckBox& SwitchOf(int field);

  ComboBox* country_;
  ComboBox* local_code_;
  std::vector<Label*> units_;         // that name the currency
  std::vector<std::string> numbers_;  // by entry of the countries
  std::string loaded_country_;
  std::string shown_country_;
};

constexpr std::string_view kCountrySection = "Country";
constexpr std::string_view kCountKey = "Cnt";
constexpr std::string_view kUnitKey = "UNIT";
constexpr std::string_view kFirstCountry = "001";
constexpr std::string_view kNoData = "No data";
constexpr int kMostPlaces = 999;

enum class Kind { kFlag, kPercent, kWhole, kAmount };

/** A field's control: its index in `Check1`, `MaskEdNum` or `Text1`, and its unit; "" for the country's unit.
 * A percentage also has a hidden `Text1`, at index `kept`, with the value to save. */
struct Place {
  int field;
  Kind kind;
  int index;
  int kept = kNoIndex;
  std::string_view unit = {};
};

constexpr std::string_view kPercentSign = "%";
constexpr std::string_view kMinutes = "Minute";
constexpr std::string_view kSeconds = "Second";

constexpr Place kPlaces[] = {
    {kSaveIntercom, Kind::kFlag, 0},
    {kSaveIncoming, Kind::kFlag, 1},
    {kSaveOutGoing, Kind::kFlag, 2},
    {kBillFlat, Kind::kFlag, 3},
    {kLongDistancePercent, Kind::kPercent, 0, 0, kPercentSign},
    {kOverseaPercent, Kind::kPercent, 2, 1, kPercentSign},
    {kMobilePercent, Kind::kPercent, 1, 2, kPercentSign},
    {kLongDistanceCharge, Kind::kWhole, 3},
    {kOverseaCharge, Kind::kWhole, 4},
    {kMobileCharge, Kind::kWhole, 5},
    {kIncomingRate, Kind::kAmount, 6},
    {kIntercomRate, Kind::kAmount, 7},
    {kTimeExpand, Kind::kWhole, 8, kNoIndex, kMinutes},
    {kChargeExpand, Kind::kAmount, 9},
    {kTimeExpandIn, Kind::kWhole, 10, kNoIndex, kMinutes},
    {kChargeExpandIn, Kind::kWhole, 11},
    {kLocalTime, Kind::kWhole, 12, kNoIndex, kSeconds},
    {kTimePage, Kind::kWhole, 13, kNoIndex, kSeconds},
    {kTimeMobile, Kind::kWhole, 14, kNoIndex, kSeconds},
    {kTimeLongDistance, Kind::kWhole, 15, kNoIndex, kSeconds},
    {kTimeOversea, Kind::kWhole, 16, kNoIndex, kSeconds},
    {kPrintMiniBar, Kind::kFlag, 4},
    {kAreaPercent, Kind::kPercent, 3, 17, kPercentSign},
    {kExpandAll, Kind::kFlag, 5},
};

constexpr int kHighestAmount = 655;
constexpr int kHighestWhole = 254;

const Place& PlaceOf(int field) {
  return *std::find_if(std::begin(kPlaces), std::end(kPlaces),
                       [&](const Place& place) { return place.field == field; });
}

ControlId IdOf(const Place& place) {
  const char* name = place.kind == Kind::kFlag      ? "Check1"
                     : place.kind == Kind::kPercent ? "MaskEdNum"
                                                    : "Text1";
  return {name, place.index};
}

/** At most one point, and at most two digits after it. */
bool FitsAmount(std::string_view text, char key) {
  const std::size_t point = text.find('.');
  if (key == '.') return point == std::string_view::npos;
  return point == std::string_view::npos || text.size() - point <= 2;
}

/** The mask of a percentage: three digits, a point, two digits. */
bool FitsPercent(std::string_view text, char key) {
  constexpr std::size_t kDigitsInFront = 3;
  if (key != '.' && text.find('.') == std::string_view::npos && text.size() >= kDigitsInFront) return false;
  return FitsAmount(text, key);
}

EntryRule RuleOf(Kind kind) {
  EntryRule rule = AnyDigits();
  if (kind == Kind::kWhole) return rule;
  rule.characters = "0123456789.";
  rule.fits = kind == Kind::kPercent ? FitsPercent : FitsAmount;
  return rule;
}

/** A label as shown on the screen; a percentage has its sign after the box instead. */
std::string ScreenLabel(int field) {
  std::string name(StatementOf(kTable, field).name);
  if (name.ends_with(" %")) name.resize(name.size() - 2);
  return field == kLocalTime ? name + ":" : name + " :";
}

BillingModeEditor::BillingModeEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name) {
  FormLayout country = CountryGroup();
  const auto group = [this](std::string title, std::initializer_list<int> fields) {
    std::vector<FormLayout> parts;
    for (const int field : fields) parts.push_back(AmountField(field));
    return layout::Group(std::move(title), std::move(parts));
  };
  FormLayout saved =
      Switches("Calls", {kSaveIntercom, kSaveIncoming, kSaveOutGoing, kBillFlat, kPrintMiniBar, kExpandAll});
  FormLayout percent =
      group("Percent", {kLongDistancePercent, kOverseaPercent, kMobilePercent, kAreaPercent});
  FormLayout charge =
      group("Charge", {kLongDistanceCharge, kOverseaCharge, kMobileCharge, kIncomingRate, kIntercomRate});
  FormLayout expand = group("Expand", {kTimeExpand, kChargeExpand, kTimeExpandIn, kChargeExpandIn});
  FormLayout times = group("Time", {kLocalTime, kTimePage, kTimeMobile, kTimeLongDistance, kTimeOversea});
  SetLayout(
      layout::Column({layout::Row({layout::Column({std::move(country), std::move(saved), layout::Stretch()}),
                                   layout::Column({std::move(percent), std::move(charge), layout::Stretch()}),
                                   layout::Column({std::move(expand), std::move(times), layout::Stretch()})}),
                      layout::Stretch(), OkAndCancel()}));
}

FormLayout BillingModeEditor::CountryGroup() {
  country_ = &AddEntries<ComboBox>({"cmbCountry"}, "", {});
  country_->changed = [this] {
    // Choosing the same country again changes nothing: its local code stays.
    if (CountryNumber() != shown_country_) ShowCountry();
  };
  local_code_ = &AddEntries<ComboBox>({"cmbLocalCode"}, "", {});
  return layout::Group("Country", {layout::Field("Country :", *country_),
                                   layout::Field(LabelOf(kTable, kLocalCode), *local_code_)});
}

FormLayout BillingModeEditor::AmountField(int field) {
  const Place& place = PlaceOf(field);
  TextBox& box = AddText(IdOf(place), "", RuleOf(place.kind));
  box.entered = [&box] { box.selected = box.text == kUnset; };
  if (place.kept != kNoIndex) {
    TextBox& kept = AddText({"Text1", place.kept}, "", {});
    kept.visible = false;
    box.changed = [&box, &kept] { kept.text = box.text; };
  }
  if (!place.unit.empty()) return layout::Field(ScreenLabel(field), box, std::string(place.unit));
  units_.push_back(&AddLabel({"lblUnit", field}, ""));
  return layout::Field(ScreenLabel(field), box, *units_.back());
}

FormLayout BillingModeEditor::Switches(std::string title, const std::vector<int>& fields) {
  std::vector<FormLayout> parts;
  parts.reserve(fields.size());
  for (const int field : fields) {
    parts.push_back(layout::Of(AddCheck(IdOf(PlaceOf(field)), std::string(StatementOf(kTable, field).name))));
  }
  return layout::Group(std::move(title), std::move(parts));
}

TextBox& BillingModeEditor::BoxOf(int field) {
  return *Find<TextBox>(IdOf(PlaceOf(field)));
}

CheckBox& BillingModeEditor::SwitchOf(int field) {
  return *Find<CheckBox>(IdOf(PlaceOf(field)));
}

/** The country's number. If the system file does not have it, the first country is used and saved at once. */
std::string BillingModeEditor::ValidCountry(const IniText& project) {
  std::string stored(KeyValue(project, kCountry));
  const std::string count = context().store.GetIniValue(context().system_file, kCountrySection, kCountKey);
  if (Val(stored) > 0 && Val(stored) <= Val(count)) return stored;
  const Status written =
      context().store.SetIniValue(project_file(), kCountry.section, kCountry.key, kFirstCountry);
  if (!written.ok()) context().questions.Box(written.message(), true);
  NoteOwnWrite();
  return std::string(kFirstCountry);
}

void BillingModeEditor::FillCountries(std::string_view country) {
  const std::shared_ptr<const IniText> system = context().store.Snapshot(context().system_file);
  const std::int64_t count =
      std::min<std::int64_t>(Val(system->Get(kCountrySection, kCountKey)), kMostPlaces);
  country_->entries.clear();
  numbers_.clear();
  for (int n = 1; n <= count; ++n) {
    const std::string number = Padded(n, 3);
    const std::string_view name = Trim(system->Get(kCountrySection, number));
    if (name.empty()) continue;
    if (n == Val(country)) country_->current = static_cast<int>(numbers_.size());
    country_->entries.emplace_back(name);
    numbers_.push_back(number);
  }
}

std::string BillingModeEditor::CountryNumber() const {
  return country_->current < 0 ? loaded_country_ : numbers_[static_cast<std::size_t>(country_->current)];
}

/** Shows the local codes and the unit of the chosen country. */
void BillingModeEditor::ShowCountry() {
  const std::shared_ptr<const IniText> system = context().store.Snapshot(context().system_file);
  const std::string section = CountryNumber();
  shown_country_ = section;
  const std::int64_t count = std::min<std::int64_t>(Val(system->Get(section, kCountKey)), kMostPlaces);
  local_code_->entries.clear();
  local_code_->current = kNoIndex;
  for (int n = 1; n <= count; ++n)
    local_code_->entries.emplace_back(Trim(system->Get(section, Padded(n, 3))));
  if (local_code_->entries.empty()) {
    local_code_->entries.emplace_back(kNoData);
    local_code_->current = 0;
  }
  const std::string_view unit = system->Get(section, kUnitKey);
  for (Label* label : units_) label->text = unit;
}

void BillingModeEditor::Load(const IniText& project) {
  loaded_country_ = ValidCountry(project);
  FillCountries(loaded_country_);
  ShowCountry();
  const FieldList fields(KeyValue(project, kTable));
  const std::int64_t code = Val(fields[kLocalCode]);
  if (code >= 1 && code <= static_cast<std::int64_t>(local_code_->entries.size()))
    local_code_->current = static_cast<int>(code) - 1;
  for (const Place& place : kPlaces) {
    if (place.kind == Kind::kFlag) {
      SwitchOf(place.field).on = Val(fields[place.field]) != 0;
      continue;
    }
    TextBox& box = BoxOf(place.field);
    box.text = fields[place.field];
    if (place.kept != kNoIndex) Find<TextBox>({"Text1", place.kept})->text = box.text;
  }
}

std::string BillingModeEditor::LocalCode() const {
  if (local_code_->entries.size() == 1 && local_code_->entries[0] == kNoData) return std::string(kUnset);
  return local_code_->current < 0 ? "0" : Padded(local_code_->current + 1, 2);
}

/** Refuses values that cannot be sent to an exchange; the boxes keep them. */
bool BillingModeEditor::MaySave() {
  for (const Place& place : kPlaces) {
    if (place.kind != Kind::kPercent && place.kind != Kind::kAmount) continue;
    TextBox& box = BoxOf(place.field);
    const Field& statement = StatementOf(kTable, place.field);
    std::string wrong;
    if (box.text == ".") {
      wrong = " is not an amount.";
    } else if (place.kind == Kind::kPercent && ValHundredths(box.text) > statement.high) {
      wrong = " is more than an exchange can hold; the maximum is " + FormatHundredths(statement.high) + ".";
    }
    if (wrong.empty()) continue;
    context().questions.Box(std::string(statement.name).append(": ").append(box.text).append(wrong), true);
    Focus(box);
    return false;
  }
  return true;
}

std::string BillingModeEditor::FieldOf(int field) {
  const Place& place = PlaceOf(field);
  if (place.kind == Kind::kFlag) return std::string(FlagText(SwitchOf(field)));
  const TextBox& box = BoxOf(field);
  if (box.text.empty()) return "0";
  if (place.kind == Kind::kPercent) return Find<TextBox>({"Text1", place.kept})->text;
  return place.kind == Kind::kAmount ? AtMost(box.text, kHighestAmount) : AtMost(box.text, kHighestWhole);
}

void BillingModeEditor::Write(IniEdit& project) {
  std::string list = LocalCode();
  for (int field = kLocalCode + 1; field <= kExpandAll; ++field) list.append("|").append(FieldOf(field));
  project.Set(kTable.section, kTable.key, list);
  project.Set(kCountry.section, kCountry.key, CountryNumber());
}

}  // namespace billing_mode_editor

extern const Editor kBillingModeEditor{.text = "24 - Billing Mode",
                                       .key = "billingmode",
                                       .name = {"frmBillingMode", "Billing Mode"},
                                       .make = Make<billing_mode_editor::BillingModeEditor>,
                                       .needs_system_file = true};

}  // namespace tarvok::editors
