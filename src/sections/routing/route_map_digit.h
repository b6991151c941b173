#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** The first step of routing: digit patterns and what is done with a number that matches. */
inline constexpr int kRouteMapRows = 200;

namespace route_map_digit {

/** Fields of a row, from 1. A load writes the first three or four, section 43 adds the last. */
enum FieldNumber : int { kDigit = 1, kSendNumber, kRouteList, kReleaseCo, kTimeout };

extern const Table kTable;

}  // namespace route_map_digit

/**
 * Section 8: 200 records in row order. An unused row is 20 bytes of 0 and 255 in all others.
 *
 *  0 Digit, 20 characters    20 Send Number    21 Route List -1, 101 stays 101    22 Release CO
 *
 * The short layout has 22 bytes a record, 4,400 in all, and no Release CO; it is sent below version 102 and
 * answered by version 100. The long one has 23 bytes, 4,600 in all; it is sent from 102 on but answered from
 * 101 on. It alone carries "*" as 3B and "#" as 3C. A Send Number that is missing, not "F", is sent as 0.
 */
void EncodeRouteMapDigit22(const IniText& project, ImageWriter& image);
void EncodeRouteMapDigit23(const IniText& project, ImageWriter& image);
/** Rows come back with three or four fields; one without any value is removed. Bytes 0 between digits close
 * up. In the long layout 3B and 3C are always "*" and "#", though ";" and "<" are sent by the same bytes. */
void DecodeRouteMapDigit22(const ImageReader& image, IniEdit& project);
void DecodeRouteMapDigit23(const ImageReader& image, IniEdit& project);

/** Section 43, from version 107: the time limit of each row, 200 bytes. 255 for an unused row, 0 for a row
 * without a limit of its own; "255" is no limit and goes out as 255 too. */
void EncodeRouteTimeLimit(const IniText& project, ImageWriter& image);
/** Adds a field to each row that section 8 left; a row that it removed stays away. */
void DecodeRouteTimeLimit(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
