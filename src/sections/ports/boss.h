#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Pairs of a boss's port and a secretary's port. */
inline constexpr int kBossRows = 20;

namespace boss {

enum FieldNumber : int { kBoss = 1, kSecretary };

extern const Table kTable;

}  // namespace boss

/**
 * Section 45, from version 108: 20 records of 4 bytes, 80 bytes. A field that is not set is 255, 255.
 *
 *  at bytes
 *   0   2  BOSS          -1
 *   2   2  SECRETARY     -1
 */
void EncodeBoss(const IniText& project, ImageWriter& image);
/** Every row is written, an empty one as "F|F". The boss byte of the port's own record is not changed. */
void DecodeBoss(const ImageReader& image, IniEdit& project);

inline constexpr Section kBossSection = {.number = 45,
                                         .name = "Boss and secretary",
                                         .progress = "Sending setup boss and secretary...",
                                         .send_failed = "Send Setup Boss and Secretary Failed (RE)",
                                         .send_from = 108,
                                         .load_from = 108,
                                         .moves_bar = false,
                                         .layouts = {{80, EncodeBoss, DecodeBoss}},
                                         .tables = {&boss::kTable}};

}  // namespace tarvok::sections
