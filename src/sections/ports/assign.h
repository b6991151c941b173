#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** The numbering plan: directory numbers and what each one reaches. */
inline constexpr int kAssignRows = 500;

namespace assign {

/** Fields of a number row, from 1. `Type` decides what `Value` refers to. */
enum FieldNumber : int { kNumber = 1, kType, kValue, kCompany, kName };

extern const Table kTable;

}  // namespace assign

/**
 * Section 13, every version: 500 records of 9 bytes, 4,500 bytes. Rows above "Now" and unused rows are 9
 * bytes of 255.
 *
 *  at bytes
 *   0   3  Number        packed digits
 *   3   1  Type
 *   4   2  Value         -1
 *   6   1  Company
 *   7   2  Name          -1
 */
void EncodeAssign(const IniText& project, ImageWriter& image);
/** A byte 0 in Number is read as "0" and ends the number. The row's type decides how `Value` is padded. */
void DecodeAssign(const ImageReader& image, IniEdit& project);

inline constexpr Section kAssignSection = {.number = 13,
                                           .name = "Assign Number",
                                           .progress = "Sending Assign Number...",
                                           .send_failed = "Send Assign Number failed (RE)",
                                           .layouts = {{4500, EncodeAssign, DecodeAssign}},
                                           .tables = {&assign::kTable}};

}  // namespace tarvok::sections
