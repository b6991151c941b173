#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Groups of trunk ports from which the exchange seizes an outgoing line, and the most members that all
 * groups can have together. */
inline constexpr int kGroupsOut = 32;
inline constexpr int kGroupOutMembers = 1024;

namespace group_out {

/** A row is a list; every item of it is this field. */
enum FieldNumber : int { kMember = 1 };

extern const Table kTable;

}  // namespace group_out

/**
 * Section 11, every version: 2,112 bytes.
 *
 *  0 32 ends of 16 bits: the members of this group and all before it
 * 64 1,024 members of 16 bits in group order: the port -1, and 255, 255 after the last
 */
void EncodeGroupOut(const IniText& project, ImageWriter& image);
/** A last end of 65,535 means that there are no groups. Otherwise "Now" is the last end as received, even if
 * it is beyond the pool, where the groups stop. A member of 65,535 is skipped. */
void DecodeGroupOut(const ImageReader& image, IniEdit& project);

inline constexpr Section kGroupOutSection = {.number = 11,
                                             .name = "Group Out",
                                             .progress = "Sending Group Out...",
                                             .send_failed = "Send Group Out failed (RE)",
                                             .layouts = {{2112, EncodeGroupOut, DecodeGroupOut}},
                                             .tables = {&group_out::kTable}};

}  // namespace tarvok::sections
