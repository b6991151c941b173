#pragma once

#include "sections/section.h"

namespace tarvok::sections {

namespace pabx_mode {

/** Fields of the settings of the exchange as a whole, from 1. */
enum FieldNumber : int {
  kPrintCallRecord = 1,
  kCheckCredit,
  kManual,
  kCheckBadCo,
  kWarningTone,
  kPaperFeed,
  kCheckDuplicate,
  kRecordLastPerson,
  kManualMode,
  kTrunkTimeLimit,
  kVmCheckMapDigit,
  kCheckClassMemory,
  kOnCoWhenX,
  kDidBusyTransfer,
  kPrintWakeup,
  kTransferTarget,
  kTransferPort,
  kTrunkToTrunk,
  kIntrusionTone,
  kPowerRevision,
};

extern const Table kTable;

}  // namespace pabx_mode

/**
 * Section 2, every version: 20 bytes. The fields are not in order. An empty key is 11 bytes of 0 and nine
 * of 255.
 *
 *  0 0                    5 Auto / Manual         10 Trunk to trunk limit     15 Print wakeup call
 *  1 Print call record    6 Warning tone          11 VM check map digit       16 transfer port -1, 16 bits
 *  2 Check credit         7 Paper feed            12 Check class              18 Use trunk to trunk
 *  3 Day or night         8 Power revision        13 On CO when "X"           19 Use intrusion tone
 *  4 Check bad CO         9 Record last person    14 busy transfer: 0 off, 1 message, 2 number
 *
 * "F" is sent as 0 in bytes 1 to 10. Check Duplicate Record is not sent.
 */
void EncodePabxMode(const IniText& project, ImageWriter& image);
/** Byte 8 sets two fields: Check Duplicate Record to its value, and Power Revision to "1" or "0". */
void DecodePabxMode(const ImageReader& image, IniEdit& project);

inline constexpr Section kPabxModeSection = {.number = 2,
                                             .name = "PABX Mode",
                                             .progress = "Sending PABX Mode...",
                                             .send_failed = "Send PABX Mode failed (RE)",
                                             .layouts = {{20, EncodePabxMode, DecodePabxMode}},
                                             .tables = {&pabx_mode::kTable}};

}  // namespace tarvok::sections
