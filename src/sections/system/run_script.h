#pragma once

#include "sections/section.h"

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

inline constexpr Section kRunScriptSection = {.number = 33,
                                              .name = "Run Script",
                                              .progress = "Sending Run Script...",
                                              .send_failed = "Send Run Script failed (RE)",
                                              .send_from = 101,
                                              .load_from = 101,
                                              .layouts = {{40, EncodeRunScript, DecodeRunScript}},
                                              .tables = {&run_script::kTable}};

}  // namespace tarvok::sections
