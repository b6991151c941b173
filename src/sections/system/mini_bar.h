#pragma once

#include <string_view>

#include "sections/section.h"

namespace tarvok::sections {

/** The price list of the mini bars. It is not a section of the configuration; its records are transferred one
 * by one. */
inline constexpr int kMiniBarRows = 512;
inline constexpr int kMiniBarRecordSize = 32;

namespace mini_bar {

enum FieldNumber : int { kName = 1, kPrice };

extern const Table kTable;

}  // namespace mini_bar

/**
 * Fills a record of 32 bytes from row `number`, 1 to 512. A missing row gives bytes of 0.
 *
 *  0 Name, 20 bytes, 0 after its end     20 Price, 16 bits     22 ten bytes of 0
 *
 * "F" is sent as 0 in both. The editor takes names of up to 16 characters, but 20 fit.
 */
void EncodeMiniBarRecord(const IniText& project, int number, ImageWriter& image);

/** Stores row `number` as received from an exchange. Pipes, tabs and line ends are removed from the name, and
 * blanks from its ends. A price of 65,535 or more is "F". A row without a name whose price is "F" or 0 is
 * removed. */
void DecodeMiniBarRecord(std::string_view name, int price, int number, IniEdit& project);

inline constexpr Section kMiniBarSection = {.tables = {&mini_bar::kTable}};

}  // namespace tarvok::sections
