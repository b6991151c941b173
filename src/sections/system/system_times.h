#pragma once

#include <array>

#include "sections/section.h"

namespace tarvok::sections {

inline constexpr int kWeekdays = 7;
inline constexpr int kHolidayRows = 50;

namespace system_times {

/** Fields of a weekday: when the day and the night begin, two digits each for hour and minute. */
enum WeekdayField : int { kDayTime = 1, kNightTime };
/** Fields of a holiday, two digits each. */
enum HolidayField : int { kMonth = 1, kDay };

/** One table per weekday, Sunday first, as on the wire. */
extern const std::array<Table, kWeekdays> kWeekdayTables;
extern const Table kHolidays;

}  // namespace system_times

/**
 * Section 24 (day) and section 25 (night), every version: 16 bytes.
 *
 *  0  0, 0     2  seven pairs from Sunday to Saturday: hour, minute
 *
 * The decimal digits are sent as hexadecimal ones: 17:30 is 0x17, 0x30. The hour is the first two characters
 * of the time, the minute the last two, whatever its length. A missing time is 0, 0; "F" is 255, 255.
 */
void EncodeDayTime(const IniText& project, ImageWriter& image);
void EncodeNightTime(const IniText& project, ImageWriter& image);
/** Stores only the day time of each weekday and drops its night time. */
void DecodeDayTime(const ImageReader& image, IniEdit& project);
/** Adds the night times to the day times already in the project. A missing day time becomes "0000". */
void DecodeNightTime(const ImageReader& image, IniEdit& project);

/**
 * Section 26, every version: 50 records of 2 bytes, 100 bytes. The project has day and month the other way
 * round. An empty row is 0, 0; a field "F" is 255.
 *
 *  at bytes
 *   0   1  Day           packed digits
 *   1   1  Month         packed digits
 */
void EncodeWeekend(const IniText& project, ImageWriter& image);
/** Reads the bytes as decimal numbers, so month 12 comes back as "18". Exchanges in the field rely on this;
 * do not correct one direction alone. A record of 0, 0 or 255, 255 empties its row. */
void DecodeWeekend(const ImageReader& image, IniEdit& project);

inline constexpr Section kDayTimeSection = {
    .number = 24,
    .name = "Day Time",
    .progress = "Sending Day Time...",
    .send_failed = "Send Day Time failed (RE)",
    .layouts = {{16, EncodeDayTime, DecodeDayTime}},
    .tables = {&system_times::kWeekdayTables[0], &system_times::kWeekdayTables[1],
               &system_times::kWeekdayTables[2], &system_times::kWeekdayTables[3],
               &system_times::kWeekdayTables[4], &system_times::kWeekdayTables[5],
               &system_times::kWeekdayTables[6]}};

inline constexpr Section kNightTimeSection = {.number = 25,
                                              .name = "Night Time",
                                              .progress = "Sending Night Time...",
                                              .send_failed = "Send Night Time failed (RE)",
                                              .layouts = {{16, EncodeNightTime, DecodeNightTime}},
                                              .tables = kDayTimeSection.tables};

inline constexpr Section kWeekendSection = {.number = 26,
                                            .name = "Date Weekend",
                                            .progress = "Sending Weekend...",
                                            .send_failed = "Send Weekend failed (RE)",
                                            .layouts = {{100, EncodeWeekend, DecodeWeekend}},
                                            .tables = {&system_times::kHolidays}};

}  // namespace tarvok::sections
