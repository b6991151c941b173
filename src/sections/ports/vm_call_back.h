#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Voice mail call back: digits to check for and digits to insert. */
inline constexpr int kVmCallBackRows = 10;

namespace vm_call_back {

enum FieldNumber : int { kCheck = 1, kInsert };

extern const Table kTable;

}  // namespace vm_call_back

/**
 * Section 41, from version 105: 10 records of 8 bytes, 80 bytes. A field that is not set is 0.
 *
 *  at bytes
 *   0   4  Check digit   characters
 *   4   4  Insert digit  characters
 *
 * The digits are plain characters, not packed.
 */
void EncodeVMCallBack(const IniText& project, ImageWriter& image);
/** Every row is written, an empty one as "F|F". Bytes 0 and 255 are skipped. */
void DecodeVMCallBack(const ImageReader& image, IniEdit& project);

inline constexpr Section kVmCallBackSection = {.number = 41,
                                               .name = "VM Call Back",
                                               .progress = "Sending VM Call Back...",
                                               .send_failed = "Send VM Call Back failed (RE)",
                                               .send_from = 105,
                                               .load_from = 105,
                                               .layouts = {{80, EncodeVMCallBack, DecodeVMCallBack}},
                                               .tables = {&vm_call_back::kTable}};

}  // namespace tarvok::sections
