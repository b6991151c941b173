#include "sections/system/system_times.h"

#include <string>

#include "sections/system/system_config.h"
#include "store/field_list.h"
#include "store/number_text.h"
#include "store/value_code.h"

namespace tarvok {
namespace system_times {
namespace {

constexpr tarvok::Field kWeekdayFields[] = {Digits("Day Time", 4), Digits("Night Time", 4)};
constexpr tarvok::Field kHolidayFields[] = {Number("Month", 1, 12, 2), Number("Day", 1, 31, 2)};

constexpr Table Weekday(std::string_view key, std::string_view name) {
  return {.section = kSystemConfig, .row_name = name, .key = key, .fields = kWeekdayFields};
}

/** The texts of a holiday's table, which has to outlive it. */
struct HolidayTexts {
  std::array<char, 3> key = {'W'};
  std::array<char, 10> name = {'H', 'o', 'l', 'i', 'd', 'a', 'y', ' '};
};

constexpr std::array<HolidayTexts, kHolidays> MakeHolidayTexts() {
  std::array<HolidayTexts, kHolidays> texts{};
  for (int i = 0; i < kHolidays; ++i) {
    HolidayTexts& text = texts[static_cast<std::size_t>(i)];
    text.key[1] = text.name[8] = static_cast<char>('0' + (i + 1) / 10);
    text.key[2] = text.name[9] = static_cast<char>('0' + (i + 1) % 10);
  }
  return texts;
}

constexpr std::array<HolidayTexts, kHolidays> kHolidayTexts = MakeHolidayTexts();

constexpr std::array<Table, kHolidays> MakeHolidayTables() {
  std::array<Table, kHolidays> tables{};
  for (std::size_t i = 0; i < tables.size(); ++i) {
    const HolidayTexts& text = kHolidayTexts[i];
    tables[i] = {.section = kSystemConfig,
                 .row_name = {text.name.data(), text.name.size()},
                 .key = {text.key.data(), text.key.size()},
                 .fields = kHolidayFields};
  }
  return tables;
}

}  // namespace

constinit const std::array<Table, kWeekdays> kWeekdayTables = {
    Weekday("Sun", "Sunday"),    Weekday("Mon", "Monday"),   Weekday("Tue", "Tuesday"),
    Weekday("Wed", "Wednesday"), Weekday("Thu", "Thursday"), Weekday("Fri", "Friday"),
    Weekday("Sat", "Saturday")};
constinit const std::array<Table, kHolidays> kHolidayTables = MakeHolidayTables();

}  // namespace system_times

namespace {

using namespace system_times;

constexpr int kPairs = 2;  // where the first weekday stands
constexpr int kPair = 2;

std::string_view ValueOf(const IniText& project, const Table& table) {
  return Trim(project.Get(table.section, table.key));
}

void EncodeTimes(const IniText& project, ImageWriter& image, int field) {
  int at = kPairs;
  for (const Table& weekday : kWeekdayTables) {
    const std::string_view time = GetField(ValueOf(project, weekday), field);
    if (time == kUnset) {
      image.Fill(at, kPair, 255);
    } else {
      image.Byte(at, static_cast<int>(ValHex(time.substr(0, 2))));
      image.Byte(at + 1, static_cast<int>(ValHex(time.substr(time.size() < 2 ? 0 : time.size() - 2))));
    }
    at += kPair;
  }
}

std::string TwoHexDigits(int byte) {
  const std::string hex = DecToHex(static_cast<std::uint64_t>(byte));
  return hex.size() < 2 ? "0" + hex : hex;
}

std::string TimeAt(const ImageReader& image, std::size_t weekday) {
  const int at = kPairs + static_cast<int>(weekday) * kPair;
  return TwoHexDigits(image.Byte(at)) + TwoHexDigits(image.Byte(at + 1));
}

std::string TwoDigitsAt(const ImageReader& image, int at) {
  const int byte = image.Byte(at);
  return byte == 255 ? std::string(kUnset) : Padded(byte, 2);
}

}  // namespace

void EncodeDayTime(const IniText& project, ImageWriter& image) {
  EncodeTimes(project, image, kDayTime);
}

void EncodeNightTime(const IniText& project, ImageWriter& image) {
  EncodeTimes(project, image, kNightTime);
}

void DecodeDayTime(const ImageReader& image, IniEdit& project) {
  for (std::size_t i = 0; i < kWeekdayTables.size(); ++i)
    project.Set(kWeekdayTables[i].section, kWeekdayTables[i].key, TimeAt(image, i));
}

void DecodeNightTime(const ImageReader& image, IniEdit& project) {
  for (std::size_t i = 0; i < kWeekdayTables.size(); ++i) {
    const Table& weekday = kWeekdayTables[i];
    const std::string held = project.Get(weekday.section, weekday.key);
    const std::string_view day_time = GetField(held, kDayTime);
    RowText row;
    row.Add(day_time.empty() ? "0000" : day_time).Add(TimeAt(image, i));
    project.Set(weekday.section, weekday.key, row.str());
  }
}

void EncodeWeekend(const IniText& project, ImageWriter& image) {
  int at = 0;
  for (const Table& holiday : kHolidayTables) {
    const std::string_view value = ValueOf(project, holiday);
    if (!value.empty()) {
      RecordWriter row(image, at, holiday, holiday.key, value);
      row.Checked(0, kDay, row.IsSet(kDay) ? ValHex(row.Get(kDay)) : 255);
      row.Checked(1, kMonth, row.IsSet(kMonth) ? ValHex(row.Get(kMonth)) : 255);
    }
    at += kPair;
  }
}

void DecodeWeekend(const ImageReader& image, IniEdit& project) {
  int at = 0;
  for (const Table& holiday : kHolidayTables) {
    RowText row;
    row.Add(TwoDigitsAt(image, at + 1)).Add(TwoDigitsAt(image, at));
    const bool free = row.str() == "F|F" || row.str() == "00|00";
    project.Set(holiday.section, holiday.key, free ? std::string_view() : std::string_view(row.str()));
    at += kPair;
  }
}

}  // namespace tarvok
