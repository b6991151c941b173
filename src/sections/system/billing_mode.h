#pragma once

#include "sections/section.h"

namespace tarvok::sections {

namespace billing_mode {

/** Fields of the billing mode, from 1. */
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
/** One key with the number of the country, which decides what the local code means. */
extern const Table kCountry;

}  // namespace billing_mode

/**
 * Section 3: 40 bytes. Form 1 is for versions below 106, form 2 for 106 only, form 3 for those above. An
 * empty key is 40 bytes of 255.
 *
 *   0 Local Code, 16 bits              15 Incoming Rate x 100        27 Print Mini Bar (2, 3)
 *   2 four flags                       17 Intercom Rate x 100        28 Area Percent x 100 (3)
 *   6 three percents x 100, 16 bits    19 Charge Expand x 100        30 Expand All (3)
 *  12 three charges                    21 five times                 31 nine bytes of 0
 *                                      26 country
 *
 * Form 3 has Time Expand and Charge Expand at 19, one byte each. Amounts times 100 are 16 bits. Bytes after
 * 26 that a form does not use are 0.
 *
 * The rates, the area percent and the 16-bit Charge Expand are sent as 0 from 655.35 up; the three percents
 * are errors above it. Fields 16 and 17 are never sent, field 14 only in form 3. A one-byte field that is "F"
 * is sent as 255.
 */
void EncodeBilling1(const IniText& project, ImageWriter& image);
void EncodeBilling2(const IniText& project, ImageWriter& image);
void EncodeBilling3(const IniText& project, ImageWriter& image);
/** Always stores 25 fields, "0" for those that the form does not have. An amount of 255, 255 is "655.35";
 * only the local code and one-byte fields can be "F". The country number is stored as received, even 255. */
void DecodeBilling1(const ImageReader& image, IniEdit& project);
void DecodeBilling2(const ImageReader& image, IniEdit& project);
void DecodeBilling3(const ImageReader& image, IniEdit& project);

inline constexpr Section kBillingModeSection = {.number = 3,
                                                .name = "Billing Mode",
                                                .progress = "Sending Billing Mode...",
                                                .send_failed = "Send Billing Mode failed (RE)",
                                                .layouts = {{40, EncodeBilling1, DecodeBilling1},
                                                            {40, EncodeBilling2, DecodeBilling2, 106, 106},
                                                            {40, EncodeBilling3, DecodeBilling3, 107, 107}},
                                                .tables = {&billing_mode::kCountry, &billing_mode::kTable}};

}  // namespace tarvok::sections
