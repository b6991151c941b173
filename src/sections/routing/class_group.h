#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Classes of service: sets of up to eight classes of digit that a port profile names. */
inline constexpr int kClassGroups = 15;
inline constexpr int kClassesOfGroup = 8;

namespace class_group {

/** A row is a list; every item of it is this field. */
enum FieldNumber : int { kClass = 1 };

extern const Table kTable;

}  // namespace class_group

/** Section 7, every version: 15 records of 8 bytes, 120 bytes. A record has the classes -1 in row order, then
 * 255 in its free places. A ninth class is an error. */
void EncodeClassGroup(const IniText& project, ImageWriter& image);
/** Skips free places between classes. The keys of empty groups are written too. */
void DecodeClassGroup(const ImageReader& image, IniEdit& project);

inline constexpr Section kClassGroupSection = {.number = 7,
                                               .name = "Class of Service",
                                               .progress = "Sending Class of Service...",
                                               .send_failed = "Send Class of Service failed (RE)",
                                               .layouts = {{120, EncodeClassGroup, DecodeClassGroup}},
                                               .tables = {&class_group::kTable}};

}  // namespace tarvok::sections
