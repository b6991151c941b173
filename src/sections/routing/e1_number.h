#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Number prefixes of the E1 links. */
inline constexpr int kE1NumberRows = 20;

namespace e1_number {

/** Fields of a row, from 1. */
enum FieldNumber : int { kLink = 1, kNumbering, kDigitCheck };

extern const Table kTable;

}  // namespace e1_number

/**
 * Section 19, every version: 20 records of 12 bytes, 240 bytes. An unused row is ten bytes of 0, 255, 255.
 *
 *  at bytes
 *   0  10  Numbering     packed digits with * and #
 *  10   1  Digit Check   packed digits
 *  11   1  E1            -1
 *
 * Digit Check is encoded as hexadecimal but decoded as decimal: "12" is sent as 12 hexadecimal and comes back
 * as "18".
 */
void EncodeE1Number(const IniText& project, ImageWriter& image);
/** Every row is written, unused ones as "F|F|F". Bytes of 255 are digits here. A byte 0 ends the number
 * even at its start, so a number can come back empty. */
void DecodeE1Number(const ImageReader& image, IniEdit& project);

inline constexpr Section kE1NumberSection = {.number = 19,
                                             .name = "DID Number",
                                             .progress = "Sending DID Number...",
                                             .send_failed = "Send DID Number failed (RE)",
                                             .layouts = {{240, EncodeE1Number, DecodeE1Number}},
                                             .tables = {&e1_number::kTable}};

}  // namespace tarvok::sections
