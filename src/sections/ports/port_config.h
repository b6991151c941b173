#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Port profiles: sets of settings that ports share. */
inline constexpr int kPortConfigRows = 20;

namespace port_config {

/** Fields of a profile, from 1. A load of section 1 writes the first 16 or 17; section 42 adds the last
 * two. */
enum FieldNumber : int {
  kServiceDay = 1,
  kServiceNight,
  kTransferLine,
  kCid,
  kConnect,
  kMusic,
  kCoTimeout,
  kCoTimeoutIncoming,
  kOverride,
  kHotline,
  kHook,
  kLineReverse,
  kFax,
  kDoNotPrint,
  kLinkTrunk,
  kWarning,
  kHangOnTimeout,
  kHoldCut,
  kRingTransfer,
};

extern const Table kTable;

}  // namespace port_config

/**
 * Section 1: 20 records of 20 bytes in profile order, 400 bytes. An unused profile is 0, 255, 255 and 17
 * bytes of 0.
 *
 *  0 Connect            5 Music                  12 Hook              17 Warning
 *  1 Service day -1     6 CO Timeout             13 Line reverse      18 Hang On (B; A: 0)
 *  2 Service night -1   7 CO Timeout Incoming    14 FAX               19 0
 *  3 Transfer line      8 Override               15 Do not print
 *  4 CID                9 Hotline, 3 (B: 255)    16 Link trunk
 *
 * Layout A is for versions below 106 and has a hotline of 6 digits. From 106 on, layout B always sends 255
 * there, because section 42 has the hotline with 12 digits.
 */
void EncodePortConfigA(const IniText& project, ImageWriter& image);
void EncodePortConfigB(const IniText& project, ImageWriter& image);
/** A profile that equals the layout's defaults is removed. Layout B never gives a hotline. */
void DecodePortConfigA(const ImageReader& image, IniEdit& project);
void DecodePortConfigB(const ImageReader& image, IniEdit& project);

/**
 * Section 42, from version 106: 20 records of 20 bytes, 400 bytes. An unused profile is 0, with 255 at offset
 * 6. A used profile without a ring transfer value has 8 at offset 7.
 *
 *  0 Hotline, 6 bytes of packed digits     6 Hold Cut COR -1     7 Ring transfer     8 twelve bytes of 0
 */
void EncodePortConfig2(const IniText& project, ImageWriter& image);
/** Merges into the profiles that section 1 wrote. A profile that section 1 removed stays removed, with its
 * hotline. */
void DecodePortConfig2(const ImageReader& image, IniEdit& project);

inline constexpr Section kPortConfigSection = {
    .number = 1,
    .name = "Port Config",
    .name_if_refused = "port config",
    .progress = "Sending Port Config...",
    .send_failed = "Send Port Config failed (RE)",
    .layouts = {{400, EncodePortConfigA, DecodePortConfigA},
                {400, EncodePortConfigB, DecodePortConfigB, 106, 106}},
    .tables = {&port_config::kTable}};

inline constexpr Section kPortConfig2Section = {.number = 42,
                                                .name = "Port Config 2",
                                                .progress = "Sending Port Config2...",
                                                .send_failed = "Send port config2 failed (RE)",
                                                .send_from = 106,
                                                .load_from = 106,
                                                .layouts = {{400, EncodePortConfig2, DecodePortConfig2}},
                                                .tables = {&port_config::kTable}};

}  // namespace tarvok::sections
