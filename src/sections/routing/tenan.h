#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** The tenants, and which of them may call which, by day and by night. Older exchanges have only 16. */
inline constexpr int kTenants = 32;
inline constexpr int kTenantsShort = 16;

namespace tenan {

/** The only field of a row: 16 characters, "0" or "1", the highest column first. */
enum FieldNumber : int { kColumns = 1 };

/** Row r of the matrix is key 100 + r by day and 200 + r by night; its columns above 16 are in 300 + r and
 * 400 + r. */
extern const Table kDayTable;
extern const Table kNightTable;
extern const Table kDayHighTable;
extern const Table kNightHighTable;

}  // namespace tenan

/**
 * Section 12: the day, then the night, one mask per row, low byte first; bit 0 is column 1.
 *
 * Short layout, below version 103: 16 rows of 16 bits each, 64 bytes; a missing row is 255, 255. Long layout,
 * from 103: 32 rows of 32 bits each, 256 bytes; a missing half of a row is 0. A value with more than 16
 * columns is an error.
 */
void EncodeTenan16(const IniText& project, ImageWriter& image);
void EncodeTenan32(const IniText& project, ImageWriter& image);
/** The short layout leaves the rows and columns above 16 unchanged. */
void DecodeTenan16(const ImageReader& image, IniEdit& project);
void DecodeTenan32(const ImageReader& image, IniEdit& project);

inline constexpr Section kTenanSection = {
    .number = 12,
    .name = "Tenan",
    .progress = "Sending Tenan...",
    .send_failed = "Send Tenan failed (RE)",
    .layouts = {{64, EncodeTenan16, DecodeTenan16}, {256, EncodeTenan32, DecodeTenan32, 103, 103}},
    .tables = {&tenan::kDayTable, &tenan::kNightTable, &tenan::kDayHighTable, &tenan::kNightHighTable}};

}  // namespace tarvok::sections
