#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** The first step of routing: digit patterns, and what happens to a number that matches. */
inline constexpr int kRouteMapRows = 200;

namespace route_map_digit {

/** Fields of a row, from 1. Section 8 loads the first three or four; section 43 adds the last. */
enum FieldNumber : int { kDigit = 1, kSendNumber, kRouteList, kReleaseCo, kTimeout };

extern const Table kTable;

}  // namespace route_map_digit

/**
 * Section 8: 200 records in row order. An unused row is 20 bytes of 0 and 255 in all others.
 *
 *  0 Digit, 20 characters    20 Send Number    21 Route List -1, 101 stays 101    22 Release CO
 *
 * The short layout has 22 bytes per record, 4,400 in all, and no Release CO. It is sent to versions below 102
 * and received from version 100. The long layout has 23 bytes per record, 4,600 in all. It is sent to
 * versions from 102 on but received from 101 on. Only the long layout has "*" as 3B and "#" as 3C. A missing
 * Send Number is sent as 0, "F" as 255.
 */
void EncodeRouteMapDigit22(const IniText& project, ImageWriter& image);
void EncodeRouteMapDigit23(const IniText& project, ImageWriter& image);
/** Rows are stored with three or four fields; a row without any value is removed. Bytes of 0 between digits
 * are dropped. In the long layout 3B and 3C always become "*" and "#", although ";" and "<" are sent as the
 * same bytes. */
void DecodeRouteMapDigit22(const ImageReader& image, IniEdit& project);
void DecodeRouteMapDigit23(const ImageReader& image, IniEdit& project);

/** Section 43, from version 107: the time limit of each row, 200 bytes. 255 for an unused row, 0 for a row
 * without a limit of its own; "255" means no limit and is sent as 255 too. */
void EncodeRouteTimeLimit(const IniText& project, ImageWriter& image);
/** Adds the limit to each row that section 8 stored. Rows that it removed are not created again. */
void DecodeRouteTimeLimit(const ImageReader& image, IniEdit& project);

inline constexpr Section kRouteMapSection = {
    .number = 8,
    .name = "Route Map Digit",
    .progress = "Sending Route Map Digit...",
    .send_failed = "Send Route Map Digit failed (RE)",
    .layouts = {{4400, EncodeRouteMapDigit22, DecodeRouteMapDigit22},
                {4600, EncodeRouteMapDigit23, DecodeRouteMapDigit23, 102, 101}},
    .tables = {&route_map_digit::kTable}};

inline constexpr Section kRouteTimeLimitSection = {
    .number = 43,
    .name = "Time Limit or Route List",
    .progress = "Sending Time Limit of Route List...",
    .send_failed = "Send Time Limit of Route List failed (RE)",
    .send_from = 107,
    .load_from = 107,
    .times_sent = 2,
    .layouts = {{200, EncodeRouteTimeLimit, DecodeRouteTimeLimit}},
    .tables = {&route_map_digit::kTable}};

}  // namespace tarvok::sections
