#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

namespace system_numbers {

/** Tables with one key and one value each. */
extern const Table kVoiceMail;
extern const Table kRecord;
extern const Table kMusicCard;
extern const Table kMusicPort;

}  // namespace system_numbers

/** Section 21, every version (voice mail), and section 46, from version 109 (record): 3 bytes of packed
 * digits, 0 for an empty key. "*" and "#" cannot be encoded. */
void EncodeVMNumber(const IniText& project, ImageWriter& image);
void EncodeRecordNumber(const IniText& project, ImageWriter& image);
/** No byte is skipped; a byte 0 ends the number. Three bytes of 0 leave the key empty. */
void DecodeVMNumber(const ImageReader& image, IniEdit& project);
void DecodeRecordNumber(const ImageReader& image, IniEdit& project);

/** Section 40, from version 104: 2 bytes, the card and port of the music source as they are; 255 is unset. */
void EncodeCardPortVM(const IniText& project, ImageWriter& image);
void DecodeCardPortVM(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
