#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** The routes of all lists, one list after the other. */
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
 *  at bytes
 *   0   1  Group         -1
 *   1   1  Type Seek
 *   2   1  Day           -1
 *   3   1  Date          packed digits
 *   4   1  Month         packed digits
 *   5   2  Start Time    packed digits
 *   7   2  End Time      packed digits
 *   9  20  Type Send     characters
 *  29  20  Type Save     characters
 *
 * Date, month and times are packed decimal: each pair of digits is read as hexadecimal, so "31" is sent as 31
 * hexadecimal. "*" and "#" are ordinary characters here.
 */
void EncodeRoute(const IniText& project, ImageWriter& image);
/** A row without a group is removed, whatever else is in it. Date and month become hexadecimal text without a
 * leading zero, so a byte 0A is "A". A time with a byte of 255 is unset. An unset day is "0". */
void DecodeRoute(const ImageReader& image, IniEdit& project);

inline constexpr Section kRouteSection = {.number = 10,
                                          .name = "Route",
                                          .progress = "Sending Route...",
                                          .send_failed = "Send Route failed (RE)",
                                          .layouts = {{9800, EncodeRoute, DecodeRoute}},
                                          .tables = {&route::kTable}};

}  // namespace tarvok::sections
