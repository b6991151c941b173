#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "editing/editor_form.h"
#include "editors/uses.h"
#include "sections/system/system_times.h"

namespace tarvok::editors::system_config_editor {

/** "System Configuration" (`frmSystemConfig`): when day and night start, the voice mail and record numbers,
 * the music source, and the holidays. */
class SystemConfigEditor : public EditorForm {
 public:
  SystemConfigEditor(const EditorContext& context, const FormName& name);

  // The holidays and times, for views such as a calendar.

  /** Month and day of every holiday whose row holds numbers. */
  std::vector<std::pair<int, int>> Holidays() const;
  /** Adds the day, or removes it after asking, like the buttons. */
  void TurnHoliday(int month, int day);
  /** Day and night time of a weekday (0 is Sunday), as typed. */
  std::pair<std::string, std::string> Times(int weekday) const;

  /** Chooses a holiday of the project, by the number of its key. */
  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  struct Weekday {
    std::string day;
    std::string night;
  };

  FormLayout TimeGroup();
  FormLayout NumberGroup();
  FormLayout HolidayGroup();
  void ShowWeekday();
  void KeepWeekday();
  void ShowHolidays();
  void ShowHoliday();
  bool MayTake(const std::string& holiday);
  void AddMember();
  void ApplyMembers();
  void RemoveMember();
  std::string ChosenDay() const;

  TabBar* tabs_;
  TextBox* day_time_;
  TextBox* night_time_;
  TextBox* voice_mail_;
  TextBox* record_;
  ComboBox* card_;
  ComboBox* port_;
  ListBox* list_;
  ComboBox* month_;
  ComboBox* day_;
  std::array<Weekday, kWeekdays> week_;
  int weekday_ = 0;                    // the weekday whose times are shown
  std::vector<std::string> holidays_;  // each as "month|day"
};

}  // namespace tarvok::editors::system_config_editor
