#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** The scripts that the exchange runs on seven events. */
inline constexpr int kScriptEvents = 7;

namespace run_script {

/** One key; its fields are the script numbers of the events. */
extern const Table kTable;

}  // namespace run_script

/** Section 33, from version 101: 40 bytes: seven script numbers -1 of 16 bits, then 26 bytes of 255. An unset
 * number is 255, 255, so an empty key is 255 throughout. */
void EncodeRunScript(const IniText& project, ImageWriter& image);
/** Adds a pipe after every number, as the editor does. The key is empty if no number is set. */
void DecodeRunScript(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
