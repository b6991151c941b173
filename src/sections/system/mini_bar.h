#pragma once

#include <string_view>

#include "sections/field.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** The price list of the mini bars. It is no section of the configuration: its records travel one by one. */
inline constexpr int kMiniBarRows = 512;
inline constexpr int kMiniBarRecordSize = 32;

namespace mini_bar {

enum FieldNumber : int { kName = 1, kPrice };

extern const Table kTable;

}  // namespace mini_bar

/**
 * Fills a record of 32 bytes from row `number`, 1 to 512. A missing row is 0.
 *
 *  0 Name, 20 bytes, 0 behind its end     20 Price, 16 bits     22 ten bytes of 0
 *
 * "F" is 0 in both. A name has 16 characters when typed, but 20 fit.
 */
void EncodeMiniBarRecord(const IniText& project, int number, ImageWriter& image);

/** Stores row `number` as an exchange tells it, the name without pipes, tabs, line ends and blanks at its ends. A price of
 * 65,535 or more is "F". A row without a name whose price is "F" or 0 is removed. */
void DecodeMiniBarRecord(std::string_view name, int price, int number, IniEdit& project);

}  // namespace tarvok::sections
