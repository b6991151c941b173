#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

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

}  // namespace tarvok::sections
