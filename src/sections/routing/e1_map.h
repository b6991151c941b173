#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** E1 links: ranges of ports of an E1 card. */
inline constexpr int kE1Links = 10;

namespace e1_map {

/** Fields of a link, from 1. */
enum FieldNumber : int { kStart = 1, kEnd, kMode };

extern const Table kTable;

}  // namespace e1_map

/**
 * Section 18, every version: 10 records of 4 bytes, 40 bytes. A link without a start or an end is four bytes
 * of 255.
 *
 *  0 card of the start port -1    1 channel of the start port -1    2 channel of the end port -1    3 Mode
 *
 * The project refers to ports, the exchange to cards and channels, so both directions read `Port_Def`. The
 * end port's card is not sent, because a link is on one card. A missing card or channel is sent as 255. Modes
 * 2 and 3 are sent as 10 and 11 hexadecimal, mode 1 as 1, any other as 0.
 */
void EncodeE1Map(const IniText& project, ImageWriter& image);
/** Looks up card and channel among the E1 ports in the project's `Port_Def`; the port is "F" if there is no
 * match. Every row is written, unused ones as "F|F|F". */
void DecodeE1Map(const ImageReader& image, IniEdit& project);

inline constexpr Section kE1MapSection = {.number = 18,
                                          .name = "Map E1",
                                          .progress = "Sending Map E1...",
                                          .send_failed = "Send Map E1 failed (RE)",
                                          .layouts = {{40, EncodeE1Map, DecodeE1Map}},
                                          .tables = {&e1_map::kTable}};

}  // namespace tarvok::sections
