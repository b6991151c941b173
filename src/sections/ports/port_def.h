#pragma once

#include <array>

#include "sections/section.h"

namespace tarvok::sections {

/** The ports of the exchange. A row's number is the port index by which all other sections refer to it. */
inline constexpr int kPortRows = 500;

/** The card types, as the grid shows them. The stored value is the card's code in field `Type`. */
inline constexpr std::array<Choice, 14> kCardLabels = {{
    {"1", "SLIC 16"},
    {"2", "TRUNK 16"},
    {"3", "8 DIGITAL"},
    {"4", "4 DIGITAL"},
    {"5", "E & M"},
    {"6", "E1"},
    {"7", "SLIC 24"},
    {"8", "DISA / VM"},
    {"9", "TRUNK 08"},
    {"10", "TRUNK 12"},
    {"11", "TRUNK 16(L)"},
    {"12", "SLIC 08"},
    {"13", "SLIC 16(L)"},
    {"14", "12 DIGITAL"},
}};

/** A card that can be inserted: its type code, its entry in the list of cards, and how many ports it adds. */
struct CardType {
  int code;
  std::string_view insert_entry;
  int ports;

  constexpr std::string_view label() const { return kCardLabels[static_cast<std::size_t>(code) - 1].shown; }
};

/** All cards. Code 4 is the mixed card: channels 1 to 4 are digital ports and channels 9 to 16 are SLIC
 * ports. It has no channels 5 to 8. */
inline constexpr std::array<CardType, 15> kCardTypes = {{
    {1, "SLIC 16", 16},
    {2, "TRUNK 16", 16},
    {3, "8 DIGITAL", 8},
    {4, "4 DIGITAL 8 Ext", 12},
    {5, "E & M", 4},
    {6, "E1 (1) 30", 30},
    {6, "E1 (2) 60", 60},
    {7, "SLIC 24", 24},
    {8, "DISA / VM", 8},
    {9, "TRUNK 08", 8},
    {10, "TRUNK 12", 12},
    {11, "TRUNK 16 Long Loop", 16},
    {12, "SLIC 08", 8},
    {13, "SLIC 16 Long Loop", 16},
    {14, "12 DIGITAL", 12},
}};

namespace port_def {

/** Fields of a port row, from 1. */
enum FieldNumber : int {
  kCard = 1,
  kChannel,
  kType,
  kConfig,
  kTenan,
  kPickupGroup,
  kIncomingDay,
  kIncomingNight,
  kDnd,
  kDisa,
  kCo,
  kExt,
  kBusy,
  kNoAns,
  kRingTime,
  kNumber,
  kPassword,
  kGroup,
  kLanguage,
  kPersonalMsg,
  kCallScreen,
  kVmUse,
  kExpand,
};

extern const Table kTable;

}  // namespace port_def

/**
 * Section 4, every version: 500 records of 55 bytes in row order, 27,500 bytes. An unused row is 55 bytes of
 * 255.
 *
 *  0 Card -1           8 Incoming D -1         21 Co, 6       48 Group           54 boss row, 1 to 20
 *  1 Channel -1        9 Incoming N -1         27 Ext, 6      49 Language -1
 *  2 Type             10 Number -1, 16 bits    33 Busy, 6     50 Personal Msg
 *  3 255, 255         12 flags                 39 NoAns, 6    51 Call Screen
 *  5 Config -1        13 0                     45 0           52 VM Use, bits 0 and 4
 *  6 Tenan -1         14 Ring T.               46 PSW, 2      53 Expand T
 *  7 Pickup Group -1  15 Disa, 6 bytes
 *
 * Flags: bit 0 is DND; bits 1 to 5 are set if Disa to NoAns are present. Byte 54 is the first `BOSS` row
 * whose boss is this port. A secretary's port is not marked.
 */
void EncodePortDef(const IniText& project, ImageWriter& image);
/** Bytes 3, 4, 45 and 54 are not read. DND that was not set comes back as "0". A row without card, channel
 * and type is removed, even if other fields are set. */
void DecodePortDef(const ImageReader& image, IniEdit& project);

inline constexpr Section kPortDefSection = {.number = 4,
                                            .name = "Port",
                                            .progress = "Sending Port...",
                                            .send_failed = "Send Port failed (RE)",
                                            .layouts = {{27500, EncodePortDef, DecodePortDef}},
                                            .tables = {&port_def::kTable}};

}  // namespace tarvok::sections
