#include "sections/system/system_times.h"

#include <string>

#include "sections/record_layout.h"
#include "sections/system/system_config.h"
#include "store/field_list.h"
#include "store/number_text.h"
#include "store/value_code.h"

namespace tarvok::sections {
namespace system_times {
namespace {

constexpr auto kWeekdayFields = FieldsOf(
    {{kDayTime, Time("Day Time").UnsetAs("0000")}, {kNightTime, Time("Night Time").UnsetAs("0000")}});
constexpr auto kHolidayFields =
    FieldsOf({{kMonth, Number("Month", 1, 12, 2)}, {kDay, Number("Day", 1, 31, 2)}});

constexpr Table Weekday(std::string_view key, std::string_view name) {
  return {.section = kSystemConfig,
          .row_name = name,
          .command = "systemconfig",
          .key = key,
          .fields = kWeekdayFields};
}

constexpr int kPairs = 2;  // offset of the first weekday
constexpr int kPair = 2;

void EncodeTimes(const IniText& project, ImageWriter& image, int field) {
  int at = kPairs;
  for (const Table& weekday : kWeekdayTables) {
    const std::string_view time = GetField(KeyValue(project, weekday), field);
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

void ReadTwoDigits(const ImageReader& record, int at, RowText& row) {
  const int byte = record.Byte(at);
  row.Add(byte == kUnsetByte ? std::string(kUnset) : Padded(byte, 2));
}

constexpr Rule kTwoDigits = kPackedByte.ReadBy(ReadTwoDigits);
constexpr RecordLayout kHoliday({{0, kDay, kTwoDigits}, {1, kMonth, kTwoDigits}});

}  // namespace

constinit const std::array<Table, kWeekdays> kWeekdayTables = {
    Weekday("Sun", "Sunday"),    Weekday("Mon", "Monday"),   Weekday("Tue", "Tuesday"),
    Weekday("Wed", "Wednesday"), Weekday("Thu", "Thursday"), Weekday("Fri", "Friday"),
    Weekday("Sat", "Saturday")};
const Table kHolidays = {.section = kSystemConfig,
                         .row_name = "Holiday",
                         .command = "systemconfig",
                         .rows = {.first = 1, .last = kHolidayRows, .width = 2, .prefix = "W"},
                         .fields = kHolidayFields,
                         .record = kHoliday.items()};

}  // namespace system_times

void EncodeDayTime(const IniText& project, ImageWriter& image) {
  system_times::EncodeTimes(project, image, system_times::kDayTime);
}

void EncodeNightTime(const IniText& project, ImageWriter& image) {
  system_times::EncodeTimes(project, image, system_times::kNightTime);
}

void DecodeDayTime(const ImageReader& image, IniEdit& project) {
  using namespace system_times;
  for (std::size_t i = 0; i < kWeekdayTables.size(); ++i)
    project.Set(kWeekdayTables[i].section, kWeekdayTables[i].key, TimeAt(image, i));
}

void DecodeNightTime(const ImageReader& image, IniEdit& project) {
  using namespace system_times;
  RowText row;
  for (std::size_t i = 0; i < kWeekdayTables.size(); ++i) {
    const Table& weekday = kWeekdayTables[i];
    const std::string_view day_time = GetField(project.View(weekday.section, weekday.key), kDayTime);
    row.Clear().Add(day_time.empty() ? "0000" : day_time).Add(TimeAt(image, i));
    project.Set(weekday.section, weekday.key, row.str());
  }
}

void EncodeWeekend(const IniText& project, ImageWriter& image) {
  using namespace system_times;
  EncodeRows(project, kHolidays, image, {kHoliday.size()}, kHoliday);
}

void DecodeWeekend(const ImageReader& image, IniEdit& project) {
  using namespace system_times;
  DecodeRows(image, project, kHolidays, kHoliday.size(), [](const ImageReader& record, RowText& row) {
    kHoliday(record, row);
    const bool free = row.str() == "F|F" || row.str() == "00|00";
    if (free) row.Clear();
  });
}

}  // namespace tarvok::sections
