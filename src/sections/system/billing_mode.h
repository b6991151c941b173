#pragma once

#include "sections/field.h"
#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

namespace billing_mode {

/** Fields of how calls are charged, from 1. */
enum FieldNumber : int {
  kLocalCode = 1,
  kSaveIntercom,
  kSaveIncoming,
  kSaveOutGoing,
  kBillFlat,
  kLongDistancePercent,
  kOverseaPercent,
  kMobilePercent,
  kLongDistanceCharge,
  kOverseaCharge,
  kMobileCharge,
  kIncomingRate,
  kIntercomRate,
  kTimeExpand,
  kChargeExpand,
  kTimeExpandIn,
  kChargeExpandIn,
  kLocalTime,
  kTimePage,
  kTimeMobile,
  kTimeLongDistance,
  kTimeOversea,
  kPrintMiniBar,
  kAreaPercent,
  kExpandAll,
};

extern const Table kTable;
/** The country by which the local code is told; one key with its number. */
extern const Table kCountry;

}  // namespace billing_mode

/**
 * Section 3: 40 bytes. Form 1 goes to versions below 106, form 2 to 106 alone, form 3 to those above. An
 * empty key is 40 bytes of 255.
 *
 *   0 Local Code, 16 bits              15 Incoming Rate x 100        27 Print Mini Bar (2, 3)
 *   2 four flags                       17 Intercom Rate x 100        28 Area Percent x 100 (3)
 *   6 three percents x 100, 16 bits    19 Charge Expand x 100        30 Expand All (3)
 *  12 three charges                    21 five times                 31 nine bytes of 0
 *                                      26 country
 *
 * Form 3 has Time Expand and Charge Expand at 19, a byte each. Amounts times 100 are 16 bits. What stands
 * behind 26 is 0 in the forms that do not hold it.
 *
 * The rates, the area percent and the 16-bit Charge Expand go out as 0 from 655.35 on; the three percents are
 * errors above it. Fields 16 and 17 never travel, field 14 only in form 3. A byte that is "F" is 255.
 */
void EncodeBilling1(const IniText& project, ImageWriter& image);
void EncodeBilling2(const IniText& project, ImageWriter& image);
void EncodeBilling3(const IniText& project, ImageWriter& image);
/** 25 fields always, "0" for those that the form does not hold. An amount of 255, 255 is "655.35"; only the
 * local code and bytes can be "F". The country's number is written as it is, also 255. */
void DecodeBilling1(const ImageReader& image, IniEdit& project);
void DecodeBilling2(const ImageReader& image, IniEdit& project);
void DecodeBilling3(const ImageReader& image, IniEdit& project);

}  // namespace tarvok::sections
