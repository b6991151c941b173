#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** The scripts that the exchange runs at seven events. */
inline constexpr int kScriptEvents = 7;

namespace run_script {

/** One key; its fields are the events' script numbers. */
extern const Table kTable;

}  // namespace run_script

/** Section 33, from version 101: 40 bytes: seven script numbers -1 of 16 bits, then 26 bytes of 255. A number
 * that is not set is 255, 255, and so an empty key is 255 throughout. */
void EncodeRunScript(const IniText& project, ImageWriter& image);
/** Every number has a pipe behind it, as the editor writes them; no number at all leaves the key empty. */
void DecodeRunScript(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
