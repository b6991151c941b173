#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** Where each route list ends in the one table of routes that they share. */
inline constexpr int kRouteLists = 50;

namespace route_list {

/** The one field of a list: the number behind its last route, "0" as long as no list up to it has one. */
enum FieldNumber : int { kEnd = 1 };

extern const Table kTable;

}  // namespace route_list

/** The routes of a list, from the first to the last; none where the last is in front of the first. */
struct RouteRange {
  int first;
  int last;
};
/** List n has the routes from where list n - 1 ends up to its own end. Ends that a hand has written may run
 * backwards, or beyond the routes that an editor can have written; those are left out. */
RouteRange RoutesOfList(const IniText& project, int list);

/** Section 9, every version: 50 values of 16 bits, 100 bytes: the end minus 1, and 0 for an end of "0". An
 * end above 65,536 is an error. */
void EncodeRouteList(const IniText& project, ImageWriter& image);
/** The value plus 1, "0" for 65,535. So an end of "0" comes back as "1", which means the same to a list
 * scan. */
void DecodeRouteList(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
