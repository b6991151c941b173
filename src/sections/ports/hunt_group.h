#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Hunt groups: ordered lists of directory numbers that share one pool of members. */
inline constexpr int kHuntGroups = 20;
inline constexpr int kHuntMembers = 500;

namespace hunt_group {

/** A row is a list of references to number rows; an empty value is a group without members. */
extern const Table kTable;

}  // namespace hunt_group

/**
 * Section 15, every version: 1,040 bytes.
 *
 *   0  20 running totals, 16 bits: the members of groups 1 to g
 *  40  500 member slots, 16 bits: number row -1 in group order without gaps, 65,535 after the last
 */
void EncodeHuntGroup(const IniText& project, ImageWriter& image);
/** "Now" becomes the last total as received, even if it is larger than the pool. A slot of 65,535 below a
 * total is skipped. A group without members is written as an empty key. */
void DecodeHuntGroup(const ImageReader& image, IniEdit& project);

inline constexpr Section kHuntGroupSection = {.number = 15,
                                              .name = "Hunt",
                                              .progress = "Sending Hunt Group...",
                                              .send_failed = "Send Hunting Group failed (RE)",
                                              .layouts = {{1040, EncodeHuntGroup, DecodeHuntGroup}},
                                              .tables = {&hunt_group::kTable}};

}  // namespace tarvok::sections
