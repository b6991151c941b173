#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Links to the other exchanges of a network: the exchange's own number, a gateway, and 16 destinations. */
inline constexpr int kLinkRows = 16;

namespace tbl_route {

/** Fields of a destination, from 1. */
enum FieldNumber : int { kCard = 1, kDevice };

extern const Table kPidTable;
extern const Table kGatewayTable;
extern const Table kTable;

}  // namespace tbl_route

/**
 * Section 37: 18 bytes. It is sent on its own; every load from version 101 on requests it.
 *
 *  0 PBX ID    1 Gateway, a stored "0" or one above 255 is 1    2 16 destinations: device high, card low
 *
 * A missing destination is sent as 10 hexadecimal, but "F|F" as 0, so opening and saving the table changes
 * what is sent. A card or device that does not fit in its four bits is an error.
 */
void EncodeTblRoute(const IniText& project, ImageWriter& image);
/** A PBX ID of 15 or more and a gateway of 16 or more become "0". A card or device above 9 becomes a letter,
 * which counts as 0 when it is sent again. */
void DecodeTblRoute(const ImageReader& image, IniEdit& project);

inline constexpr Section kTblRouteSection = {
    .number = 37,
    .name = "PBX Link Table",
    .progress = "Sending PBX Link Table...",
    .send_failed = "Sending PBX Link Table (RE)",
    .send_from = kNever,
    .load_from = 101,
    .layouts = {{18, EncodeTblRoute, DecodeTblRoute}},
    .tables = {&tbl_route::kPidTable, &tbl_route::kGatewayTable, &tbl_route::kTable}};

}  // namespace tarvok::sections
