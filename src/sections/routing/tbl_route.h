#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** The way to the other exchanges of a network: one's own number, a gateway, and 16 destinations. */
inline constexpr int kLinkRows = 16;

namespace tbl_route {

/** Fields of a destination, from 1. */
enum FieldNumber : int { kCard = 1, kDevice };

extern const Table kPidTable;
extern const Table kGatewayTable;
extern const Table kTable;

}  // namespace tbl_route

/**
 * Section 37: 18 bytes. It has a send of its own, and every load from version 101 on asks for it.
 *
 *  0 PBX ID    1 Gateway, a stored "0" or one above 255 is 1    2 16 destinations: device high, card low
 *
 * A missing destination is 10 hexadecimal, but "F|F" is 0, so that opening and saving the table changes it. A
 * card or device that does not fit into its half of the byte is an error.
 */
void EncodeTblRoute(const IniText& project, ImageWriter& image);
/** A number from 15 on, or a gateway from 16 on, loads as "0". Halves above 9 come back as letters, which
 * count 0 when they are sent again. */
void DecodeTblRoute(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
