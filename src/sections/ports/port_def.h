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
 *  at bytes
 *   0   1  Card          -1
 *   1   1  Channel       -1
 *   2   1  Type
 *   3   2  -             255
 *   5   1  Config        -1
 *   6   1  Tenan         -1
 *   7   1  Pickup Group  -1
 *   8   1  Incoming D    -1
 *   9   1  Incoming N    -1
 *  10   2  Number        -1
 *  12   1  DND           and flags
 *  14   1  Ring T.
 *  15   6  Disa          packed digits
 *  21   6  Co            packed digits
 *  27   6  Ext           packed digits
 *  33   6  Busy          packed digits
 *  39   6  NoAns         packed digits
 *  46   2  PSW           packed digits
 *  48   1  Group
 *  49   1  Language      -1
 *  50   1  Personal Msg
 *  51   1  Call Screen
 *  52   1  VM Use        bits 0 and 4
 *  53   1  Expand T
 *  54   1  -             boss row, 1 to 20
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
