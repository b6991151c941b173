#include "editors/system/system_config_editor.h"

#include <algorithm>

#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/system/box_values.h"
#include "sections/rows.h"
#include "sections/system/system_numbers.h"

namespace tarvok::editors {
namespace system_config_editor {
using namespace system_times;

namespace {

constexpr std::string_view kNoTime = "0000";
constexpr std::string_view kOverLimitWeekend = "Over limit weekend";
constexpr std::string_view kAlreadyInList = "Day already in list";

EntryRule TimeRule() {
  EntryRule rule = DigitsRule(4);
  rule.fits = FitsTime;
  return rule;
}

/** A blank and the numbers of the field's range. */
std::vector<std::string> Numbers(const Table& table) {
  std::vector<std::string> entries = NumberedEntries(table.fields[0].low, table.fields[0].high);
  entries.insert(entries.begin(), std::string());
  return entries;
}

/** A holiday in the form that the buttons make, so that equal days are equal texts. */
std::string HolidayOf(std::string_view stored) {
  const FieldList fields(stored);
  const auto text = [&](int field) {
    const bool one_digit = fields[field].size() == 1 && ReadNumber(fields[field]).is_number;
    return one_digit ? "0" + std::string(fields[field]) : FieldText(fields[field]);
  };
  return text(kMonth) + "|" + text(kDay);
}

std::string Shown(std::string holiday) {
  std::replace(holiday.begin(), holiday.end(), '|', '/');
  return holiday;
}

std::string HolidayText(int month, int day) {
  return Padded(month, 2) + "|" + Padded(day, 2);
}

}  // namespace

SystemConfigEditor::SystemConfigEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name) {
  FormLayout times = TimeGroup();
  FormLayout numbers = NumberGroup();
  FormLayout holidays = HolidayGroup();
  SetLayout(layout::Column(
      {std::move(times), layout::Row({std::move(numbers), std::move(holidays)}), OkAndCancel()}));
}

FormLayout SystemConfigEditor::TimeGroup() {
  std::vector<std::string> names;
  names.reserve(kWeekdays);
  for (const Table& weekday : kWeekdayTables) names.emplace_back(weekday.row_name);
  tabs_ = &AddEntries<TabBar>({"tbsTimeZone"}, "Weekday", std::move(names));
  tabs_->changed = [this] {
    for (TextBox* box : {day_time_, night_time_}) {
      if (box->text.empty()) box->text = kNoTime;
    }
    KeepWeekday();
    weekday_ = tabs_->current;
    ShowWeekday();
  };
  day_time_ = &AddText({"txtDayTime"}, "", TimeRule());
  night_time_ = &AddText({"txtNightTime"}, "", TimeRule());
  for (TextBox* box : {day_time_, night_time_}) box->changed = [this] { KeepWeekday(); };
  const auto label = [](int field) { return LabelOf(kWeekdayTables[0], field); };
  return layout::Group(
      "Setup Time",
      {layout::Of(*tabs_),
       layout::Row({layout::Column({layout::Field(label(kDayTime), *day_time_, "ex. (0800)"),
                                    layout::Field(label(kNightTime), *night_time_, "ex. (1730)")}),
                    layout::Picture("week")})});
}

FormLayout SystemConfigEditor::NumberGroup() {
  voice_mail_ = &AddText({"txtVM"}, "", DigitsRule(6));
  record_ = &AddText({"txtRecord"}, "", DigitsRule(6));
  card_ = &AddEntries<ComboBox>({"cmbCard"}, "", Numbers(system_numbers::kMusicCard));
  port_ = &AddEntries<ComboBox>({"cmbPort"}, "", Numbers(system_numbers::kMusicPort));
  return layout::Column(
      {layout::Group("Voice Mail", {layout::Field("Voice Mail Number :", *voice_mail_),
                                    layout::Field("Record Number :", *record_)}),
       layout::Group("Music Source", {layout::Field(LabelOf(system_numbers::kMusicCard, 1), *card_),
                                      layout::Field(LabelOf(system_numbers::kMusicPort, 1), *port_)}),
       layout::Stretch()});
}

FormLayout SystemConfigEditor::HolidayGroup() {
  list_ = &AddEntries<ListBox>({"ListView1"}, "Holidays, month and day", {});
  list_->changed = [this] { ShowHoliday(); };
  month_ = &AddEntries<ComboBox>({"cmbMonth"}, "", NumberedEntries(1, 12, 2));
  day_ = &AddEntries<ComboBox>({"cmbDay"}, "", NumberedEntries(1, 31, 2));
  month_->data = day_->data = false;  // they are only input for the buttons
  month_->current = day_->current = 0;
  Control& add = AddButton("cmdHAdd", "A&dd", [this] { AddMember(); });
  Control& apply = AddButton("cmdHApply", "App&ly", [this] { ApplyMembers(); });
  Control& remove = AddButton("cmdHRemove", "&Remove", [this] { RemoveMember(); });
  return layout::Group(
      "Holiday",
      {layout::Row({layout::Of(*list_),
                    layout::Column({layout::Field(LabelOf(kHolidays, kMonth), *month_),
                                    layout::Field(LabelOf(kHolidays, kDay), *day_), layout::Of(add),
                                    layout::Of(apply), layout::Of(remove), layout::Stretch()}),
                    layout::Picture("calendar")})});
}

void SystemConfigEditor::Load(const IniText& project) {
  for (std::size_t i = 0; i < week_.size(); ++i) {
    const FieldList times(KeyValue(project, kWeekdayTables[i]));
    week_[i] = {std::string(times[kDayTime]), std::string(times[kNightTime])};
  }
  voice_mail_->text = KeyValue(project, system_numbers::kVoiceMail);
  record_->text = KeyValue(project, system_numbers::kRecord);
  card_->ChooseOrJoin(CellText(KeyValue(project, system_numbers::kMusicCard)));
  port_->ChooseOrJoin(CellText(KeyValue(project, system_numbers::kMusicPort)));
  for (int row = 1; row <= kHolidayRows; ++row) {
    const std::string_view holiday = RowValue(project, kHolidays, row);
    if (!holiday.empty()) holidays_.push_back(HolidayOf(holiday));
  }
  ShowWeekday();
  ShowHolidays();
}

bool SystemConfigEditor::ShowPlace(std::string_view section, int row, int /*field*/) {
  if (!SameName(section, kHolidays.section) || row < 1 || row > kHolidayRows) return false;
  const std::string_view holiday = RowValue(*context().store.Snapshot(project_file()), kHolidays, row);
  const auto found = std::find(holidays_.begin(), holidays_.end(), HolidayOf(holiday));
  if (found == holidays_.end()) return false;
  ChooseEntry(*list_, static_cast<int>(found - holidays_.begin()));
  return true;
}

void SystemConfigEditor::ShowWeekday() {
  const Weekday& times = week_[static_cast<std::size_t>(weekday_)];
  day_time_->text = times.day;
  night_time_->text = times.night;
}

void SystemConfigEditor::KeepWeekday() {
  week_[static_cast<std::size_t>(weekday_)] = {day_time_->text, night_time_->text};
}

void SystemConfigEditor::ShowHolidays() {
  list_->entries.clear();
  for (const std::string& holiday : holidays_) list_->entries.push_back(Shown(holiday));
  list_->current = std::min(list_->current, static_cast<int>(holidays_.size()) - 1);
}

void SystemConfigEditor::ShowHoliday() {
  const FieldList fields(list_->current < 0
                             ? std::string_view()
                             : std::string_view(holidays_[static_cast<std::size_t>(list_->current)]));
  const auto choose = [](ComboBox& list, std::string_view text) {
    const int before = list.current;
    list.Choose(text);
    if (list.current == kNoIndex) list.current = before;
  };
  choose(*month_, fields[kMonth]);
  choose(*day_, fields[kDay]);
}

std::string SystemConfigEditor::ChosenDay() const {
  return std::string(month_->Chosen()).append("|").append(day_->Chosen());
}

bool SystemConfigEditor::MayTake(const std::string& holiday) {
  if (std::find(holidays_.begin(), holidays_.end(), holiday) == holidays_.end()) return true;
  context().questions.Box(kAlreadyInList, false);
  return false;
}

void SystemConfigEditor::AddMember() {
  if (holidays_.size() >= static_cast<std::size_t>(kHolidayRows)) {
    context().questions.Box(kOverLimitWeekend, false);
    return;
  }
  const std::string holiday = ChosenDay();
  if (!MayTake(holiday)) return;
  holidays_.push_back(holiday);
  ShowHolidays();
  MarkChanged();
}

void SystemConfigEditor::ApplyMembers() {
  const std::string holiday = ChosenDay();
  if (list_->current < 0 || !MayTake(holiday)) return;
  holidays_[static_cast<std::size_t>(list_->current)] = holiday;
  ShowHolidays();
  MarkChanged();
}

void SystemConfigEditor::RemoveMember() {
  if (list_->current < 0) return;
  const std::string text(list_->Chosen());
  if (!context().questions.Ask("Do you want to remove '" + text + "' ?")) return;
  holidays_.erase(holidays_.begin() + list_->current);
  ShowHolidays();
  MarkChanged();
}

std::vector<std::pair<int, int>> SystemConfigEditor::Holidays() const {
  std::vector<std::pair<int, int>> days;
  for (const std::string& holiday : holidays_) {
    days.emplace_back(static_cast<int>(Val(GetField(holiday, kMonth))),
                      static_cast<int>(Val(GetField(holiday, kDay))));
  }
  return days;
}

void SystemConfigEditor::TurnHoliday(int month, int day) {
  month_->Choose(Padded(month, 2));
  day_->Choose(Padded(day, 2));
  list_->current = kNoIndex;
  const std::string wanted = HolidayText(month, day);
  for (std::size_t i = 0; i < holidays_.size(); ++i) {
    if (holidays_[i] == wanted) list_->current = static_cast<int>(i);
  }
  list_->current >= 0 ? RemoveMember() : AddMember();
  Settle();
}

std::pair<std::string, std::string> SystemConfigEditor::Times(int weekday) const {
  const Weekday& times = week_[static_cast<std::size_t>(weekday)];
  return {times.day, times.night};
}

void SystemConfigEditor::Write(IniEdit& project) {
  const auto put = [&](const Table& table, std::string_view value) {
    project.Set(table.section, table.key, value);
  };
  put(system_numbers::kMusicPort, FieldText(port_->Chosen()));
  put(system_numbers::kMusicCard, FieldText(card_->Chosen()));
  put(system_numbers::kVoiceMail, voice_mail_->text);
  put(system_numbers::kRecord, record_->text);
  const auto time = [](const std::string& text) { return text.empty() ? std::string(kNoTime) : text; };
  for (std::size_t i = 0; i < week_.size(); ++i) {
    put(kWeekdayTables[i], time(week_[i].day) + "|" + time(week_[i].night));
  }
  for (int row = 1; row <= kHolidayRows; ++row) {
    const bool used = row <= static_cast<int>(holidays_.size());
    project.Set(kHolidays.section, KeyOf(kHolidays, row),
                used ? std::string_view(holidays_[static_cast<std::size_t>(row) - 1]) : std::string_view());
  }
}

}  // namespace system_config_editor

extern const Editor kSystemConfigEditor{"21 - System Configuration",
                                        "systemconfig",
                                        {"frmSystemConfig", "System Configuration"},
                                        Make<system_config_editor::SystemConfigEditor>};

}  // namespace tarvok::editors
