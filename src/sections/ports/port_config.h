#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** Port profiles: sets of settings that ports share. */
inline constexpr int kPortConfigRows = 20;

namespace port_config {

/** Fields of a profile, from 1. A load writes 16 or 17 of them, a second section adds the last two. */
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
 * Layout A goes to versions below 106 and holds a hotline of 6 digits; from 106 layout B sends 255 there,
 * whatever the profile says, because the hotline travels with 12 digits in section 42.
 */
void EncodePortConfigA(const IniText& project, ImageWriter& image);
void EncodePortConfigB(const IniText& project, ImageWriter& image);
/** A profile that equals the layout's defaults is removed. Layout B never has a hotline. */
void DecodePortConfigA(const ImageReader& image, IniEdit& project);
void DecodePortConfigB(const ImageReader& image, IniEdit& project);

/**
 * Section 42, from version 106: 20 records of 20 bytes, 400 bytes. An unused profile is 0 with 255 at offset
 * 6, and so 0 at offset 7, where a used one without a value has 8.
 *
 *  0 Hotline, 6 bytes of packed digits     6 Hold Cut COR -1     7 Ring transfer     8 twelve bytes of 0
 */
void EncodePortConfig2(const IniText& project, ImageWriter& image);
/** Merges into the profiles that section 1 left. A profile that it removed stays away, its hotline with it.
 */
void DecodePortConfig2(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
