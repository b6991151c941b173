#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

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
 *  0 Check digit, 4 characters     4 Insert digit, 4 characters
 *
 * The digits are plain characters, not packed.
 */
void EncodeVMCallBack(const IniText& project, ImageWriter& image);
/** Every row is written, an empty one as "F|F". Bytes 0 and 255 are skipped. */
void DecodeVMCallBack(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
