#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** The routes of all lists, one list behind the other. */
inline constexpr int kRouteRows = 200;

namespace route {

/** Fields of a route, from 1. */
enum FieldNumber : int {
  kGroup = 1,
  kTypeSeek,
  kDay,
  kDate,
  kMonth,
  kStartTime,
  kEndTime,
  kTypeSend,
  kTypeSave,
};

extern const Table kTable;

}  // namespace route

/**
 * Section 10, every version: 200 records of 49 bytes, 9,800 bytes. An unused row is nine bytes of 255 and 40
 * of 0.
 *
 *  0 Group -1     2 Day -1    4 Month                7 End Time, 2 bytes          29 Type Save, 20 characters
 *  1 Type Seek    3 Date      5 Start Time, 2 bytes  9 Type Send, 20 characters
 *
 * Date, month and times are packed decimal: each pair of digits of the text is read as hexadecimal, "31" is
 * 31 hexadecimal. "*" and "#" are characters like all others here.
 */
void EncodeRoute(const IniText& project, ImageWriter& image);
/** A row without a group is removed, whatever else it holds. Date and month come back as hexadecimal text
 * without a leading zero, so a byte 0A is "A"; one byte of 255 clears a whole time; no day is "0". */
void DecodeRoute(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
