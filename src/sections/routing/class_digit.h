#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** Classes of digit: lists of the numbers that a class may not dial, and of those that it may. */
inline constexpr int kClasses = 20;

namespace class_digit {

/** A row is a list of this field. */
enum FieldNumber : int { kNumber = 1 };

/** The two lists of a class stand in one project section, the allow list under a key with "A" behind. */
extern const Table kBanTable;
extern const Table kAllowTable;

}  // namespace class_digit

/**
 * Section 5, the ban lists, and section 6, the allow lists, every version: 1,064 bytes each.
 *
 *  0 20 ends of 16 bits: the pool bytes of this class and all before it
 * 40 the pool of 1,024 bytes: packed digits of each number ("*" is B, "#" is C) and a byte 0 behind it; 0
 *    behind the last
 *
 * An empty piece between two pipes, or behind a closing one, is a number too and costs its byte 0.
 */
void EncodeClassBan(const IniText& project, ImageWriter& image);
void EncodeClassAllow(const IniText& project, ImageWriter& image);
/** An end with a high byte of 255 counts 0. Numbers without digits are dropped; digits that no byte 0 ends
 * are kept as they stand. All keys are written, those of empty lists too. */
void DecodeClassBan(const ImageReader& image, IniEdit& project);
void DecodeClassAllow(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
