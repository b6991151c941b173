#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Where each route list ends in the table of routes that all lists share. */
inline constexpr int kRouteLists = 50;

namespace route_list {

/** The only field of a list: the number after its last route, or "0" if neither it nor an earlier list has a
 * route. */
enum FieldNumber : int { kEnd = 1 };

extern const Table kTable;

}  // namespace route_list

/** The routes of a list, both ends included. Empty if `last` is less than `first`. */
struct RouteRange {
  int first;
  int last;
};
/** Returns the routes of `list`, which start at the end of the list before it and stop before its own end.
 * Ends edited by hand may decrease or lie beyond the last row that the editor can write; the range is then
 * empty or cut off there. */
RouteRange RoutesOfList(const IniText& project, int list);

/** Section 9, every version: 50 values of 16 bits, 100 bytes: the end minus 1, or 0 for an end of "0". An
 * end above 65,536 is an error. */
void EncodeRouteList(const IniText& project, ImageWriter& image);
/** Stores the value plus 1, or "0" for 65,535. An end of "0" therefore comes back as "1", which gives the
 * same ranges. */
void DecodeRouteList(const ImageReader& image, IniEdit& project);

inline constexpr Section kRouteListSection = {.number = 9,
                                              .name = "Route List",
                                              .progress = "Sending Route List...",
                                              .send_failed = "Send Route List failed (RE)",
                                              .layouts = {{100, EncodeRouteList, DecodeRouteList}},
                                              .tables = {&route_list::kTable}};

}  // namespace tarvok::sections
