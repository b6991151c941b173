#pragma once

#include "sections/section.h"

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

inline constexpr Section kVoiceMailSection = {.number = 21,
                                              .name = "VM Number",
                                              .progress = "Sending VM Number...",
                                              .send_failed = "Sending VM Number failed (RE)",
                                              .layouts = {{3, EncodeVMNumber, DecodeVMNumber}},
                                              .tables = {&system_numbers::kVoiceMail}};

inline constexpr Section kMusicSourceSection = {
    .number = 40,
    .name = "Card & Port VM",
    .progress = "Sending Card & Port VM...",
    .send_failed = "Send Card & Port VM Number failed (RE)",
    .send_from = 104,
    .load_from = 104,
    .layouts = {{2, EncodeCardPortVM, DecodeCardPortVM}},
    .tables = {&system_numbers::kMusicCard, &system_numbers::kMusicPort}};

inline constexpr Section kRecordNumberSection = {.number = 46,
                                                 .name = "Record Number",
                                                 .progress = "Sending Record Number...",
                                                 .send_failed = "Sending Record Number failed (RE)",
                                                 .send_from = 109,
                                                 .load_from = 109,
                                                 .layouts = {{3, EncodeRecordNumber, DecodeRecordNumber}},
                                                 .tables = {&system_numbers::kRecord}};

}  // namespace tarvok::sections
