#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Button layouts of key telephones: the telephone's own keys and the buttons of its console. */
inline constexpr int kKeyLayouts = 24;
inline constexpr int kKeysOfLayout = 20;
inline constexpr int kDssOfLayout = 64;
/** Each line of a layout is on at most one button. */
inline constexpr int kLinesOfLayout = 5;

namespace key_dss {

/** The rows of both tables are lists of buttons. A button is "F" or a two-letter code with its argument: TE
 * number, TR number[,map digits], EX number, GO group out[,map digits], ML line. */
inline constexpr std::string_view kTelephone = "TE";
inline constexpr std::string_view kTrunk = "TR";
inline constexpr std::string_view kExtension = "EX";
inline constexpr std::string_view kGroupOut = "GO";
inline constexpr std::string_view kMultiline = "ML";
/** An older form of group out: no dialog writes it any more, but existing buttons keep it. */
inline constexpr std::string_view kOldGroupOut = "C";

extern const Table kKeys;
extern const Table kDss;

}  // namespace key_dss

/**
 * Section 27, from version 107: 24 layouts of 476 bytes, 11,424 bytes. A layout is 20 key entries of 11
 * bytes, then 64 console entries of 4 bytes; each entry is a type byte and packed digits.
 *
 *  key  1 TE       digits, * and #, 10 bytes        console  1 TE       digits, * and #, 3 bytes
 *       2 TR       digits, 10 bytes                          3 TR, EX   digits, 3 bytes
 *       2 TR a,b   a in 3 bytes, b in 7                      1 others   digits, 3 bytes
 *       3 EX       digits, 10 bytes                          0 "F"      3 bytes of 0
 *       4 GO a,b   a as a number in 1 byte, b in 9
 *       5 ML       the line in 1 byte, 9 of 0
 *       0 others   10 bytes of 0
 *       0 "F"      10 bytes of 255
 *
 * A missing `Key` row is 220 bytes of 0, not a list of "F" entries; a missing `DSS` row is 0, too. A console
 * TR is sent as type 3 and so comes back as EX.
 */
void EncodeKeyDss(const IniText& project, ImageWriter& image);
/** All rows are written. An ML without a line gets the lowest free line of its layout, if there is one. A TR
 * of more than six digits gets a comma after the sixth. */
void DecodeKeyDss(const ImageReader& image, IniEdit& project);

inline constexpr Section kKeyDssSection = {.number = 27,
                                           .name = "Key Data Config",
                                           .progress = "Sending Key Config...",
                                           .send_failed = "Send key config failed (RE)",
                                           .send_from = 107,
                                           .load_from = 107,
                                           .layouts = {{11424, EncodeKeyDss, DecodeKeyDss}},
                                           .tables = {&key_dss::kKeys, &key_dss::kDss}};

}  // namespace tarvok::sections
