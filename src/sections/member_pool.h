#pragma once

#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/table.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

// Images of tables whose rows are lists that share a pool: for each list its end, which counts its members and
// those of all lists before it, then the members' row numbers -1 in this order, and 65,535 after the last.
// All are 16 bits.

/** Encodes all lists. A single member, without a pipe, counts too. Pieces that are empty, "F" or not a
 * positive number are skipped. More members than the pool can hold are an error. */
void EncodePool(const IniText& project, const Table& table, ImageWriter& image);

/** The end of the last list as received, even if it is beyond the pool. */
int LastEnd(const ImageReader& image, const Table& table);

/** Decodes all lists, where the pool ends at the latest; the keys of empty ones are written too. A member of
 * 65,535 is skipped. */
void DecodePool(const ImageReader& image, IniEdit& project, const Table& table);

}  // namespace tarvok::sections
