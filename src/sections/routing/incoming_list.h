#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Where an incoming call is offered: up to three destinations in turn, and a time limit. */
inline constexpr int kIncomingRows = 50;

namespace incoming_list {

/** Fields of a row, from 1. A destination is a number row or one of three special targets. */
enum FieldNumber : int { kName = 1, kNum1, kNum2, kNum3, kTimeOut };

/** The special target for calls that the DID numbers route; not a number row. */
inline constexpr std::string_view kDidTarget = "1000";

extern const Table kTable;

}  // namespace incoming_list

/**
 * Section 16, every version: 50 records of 7 bytes, 350 bytes. An unused row is seven bytes of 255.
 *
 *  0 Num1 -1, 16 bits    2 Num2 -1, 16 bits    4 Num3 -1, 16 bits    6 Time Out
 *
 * The special targets are sent as A001, B001 and E000, but only in Num1; in Num2 and Num3 they are sent as
 * plain numbers minus 1. The name is not sent.
 */
void EncodeIncomingList(const IniText& project, ImageWriter& image);
/** The three codes are recognised in every destination. A row with a destination is named "Incom" plus its
 * number; a row with only a time limit is named "F". */
void DecodeIncomingList(const ImageReader& image, IniEdit& project);

inline constexpr Section kIncomingListSection = {.number = 16,
                                                 .name = "Incoming List",
                                                 .progress = "Sending Incoming List...",
                                                 .send_failed = "Send Incoming List failed (RE)",
                                                 .layouts = {{350, EncodeIncomingList, DecodeIncomingList}},
                                                 .tables = {&incoming_list::kTable}};

}  // namespace tarvok::sections
