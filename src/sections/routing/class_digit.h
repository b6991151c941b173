#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Classes of digit. Each has a list of numbers that it may not dial and a list of numbers that it may. */
inline constexpr int kClasses = 20;

namespace class_digit {

/** A row is a list; every item of it is this field. */
enum FieldNumber : int { kNumber = 1 };

/** Both lists of a class are in the same project section; the key of the allow list ends in "A". */
extern const Table kBanTable;
extern const Table kAllowTable;

}  // namespace class_digit

/**
 * Section 5, the ban lists, and section 6, the allow lists, every version: 1,064 bytes each.
 *
 *  0 20 ends of 16 bits: the pool bytes of this class and all before it
 * 40 the pool of 1,024 bytes: packed digits of each number ("*" is B, "#" is C) and a byte 0 after it; 0
 *    after the last
 *
 * An empty piece between two pipes, or after a trailing one, counts as a number too and takes its byte 0.
 */
void EncodeClassBan(const IniText& project, ImageWriter& image);
void EncodeClassAllow(const IniText& project, ImageWriter& image);
/** An end whose high byte is 255 counts as 0. Numbers without digits are dropped; a number at the
 * end of its class is kept even without its byte 0. All keys are written, including those of empty lists. */
void DecodeClassBan(const ImageReader& image, IniEdit& project);
void DecodeClassAllow(const ImageReader& image, IniEdit& project);

inline constexpr Section kClassBanSection = {.number = 5,
                                             .name = "Class of Digit",
                                             .progress = "Sending Class Digit...",
                                             .send_failed = "Send Class Digit failed (RE)",
                                             .layouts = {{1064, EncodeClassBan, DecodeClassBan}},
                                             .tables = {&class_digit::kBanTable}};

inline constexpr Section kClassAllowSection = {.number = 6,
                                               .name = "Class of Digit AL",
                                               .progress = "Sending Class of Digit Allow...",
                                               .send_failed = "Send Class of Digit Allow failed (RE)",
                                               .layouts = {{1064, EncodeClassAllow, DecodeClassAllow}},
                                               .tables = {&class_digit::kAllowTable}};

}  // namespace tarvok::sections
