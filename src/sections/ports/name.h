#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** The display names that number rows refer to, without gaps. */
inline constexpr int kNameRows = 500;

namespace name {

extern const Table kTable;

}  // namespace name

/** Section 14, every version: 500 records of 15 bytes, 7,500 bytes. A record is the name's bytes, padded with
 * 0 or cut at 15 without a terminator. Rows above "Now" are 0. */
void EncodeName(const IniText& project, ImageWriter& image);
/** "Now" counts the records that are not all blanks. A record of 0 counts too and gives an empty key. */
void DecodeName(const ImageReader& image, IniEdit& project);

inline constexpr Section kNameSection = {.number = 14,
                                         .name = "Assign Name",
                                         .progress = "Sending Assign Name...",
                                         .send_failed = "Send Assign Name failed (RE)",
                                         .layouts = {{7500, EncodeName, DecodeName}},
                                         .tables = {&name::kTable}};

}  // namespace tarvok::sections
