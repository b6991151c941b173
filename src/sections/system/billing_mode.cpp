#include "sections/system/billing_mode.h"

#include <string>

#include "sections/records.h"
#include "sections/system/system_config.h"
#include "store/number_text.h"

namespace tarvok::sections {
namespace billing_mode {
namespace {

constexpr Field Amount(std::string_view name, int high_hundredths) {
  return {name, FieldKind::kAmount, 0, high_hundredths};
}

constexpr int kMostPercent = 65535;  // in hundredths, like kMostRate
constexpr int kMostRate = 65500;
constexpr int kMost = 254;

constexpr auto kFields = FieldsOf({
    {kLocalCode, Number("Local Code", 0, 999, 2)},
    {kSaveIntercom, Flag("Save Intercom")},
    {kSaveIncoming, Flag("Save Incoming")},
    {kSaveOutGoing, Flag("Save Out Going")},
    {kBillFlat, Flag("Bill Flat")},
    {kLongDistancePercent, Amount("Long Distance Charge %", kMostPercent)},
    {kOverseaPercent, Amount("Oversea Charge %", kMostPercent)},
    {kMobilePercent, Amount("Mobile Charge %", kMostPercent)},
    {kLongDistanceCharge, Number("Long Distance Charge", 0, kMost)},
    {kOverseaCharge, Number("Oversea Charge", 0, kMost)},
    {kMobileCharge, Number("Mobile Charge", 0, kMost)},
    {kIncomingRate, Amount("Incoming Rate", kMostRate)},
    {kIntercomRate, Amount("Intercom Rate", kMostRate)},
    {kTimeExpand, Number("Time Expand", 0, kMost)},
    {kChargeExpand, Amount("Charge Expand", kMostRate)},
    {kTimeExpandIn, Number("Time Expand In", 0, kMost)},
    {kChargeExpandIn, Number("Charge Expand In", 0, kMost)},
    {kLocalTime, Number("Local Time Record", 0, kMost)},
    {kTimePage, Number("Time Page", 0, kMost)},
    {kTimeMobile, Number("Time Mobile", 0, kMost)},
    {kTimeLongDistance, Number("Time Long Distance", 0, kMost)},
    {kTimeOversea, Number("Time Oversea", 0, kMost)},
    {kPrintMiniBar, Flag("Print Mini Bar")},
    {kAreaPercent, Amount("Area Percent Charge", kMostPercent)},
    {kExpandAll, Flag("Expand All")},
});
constexpr Field kCountryFields[] = {Number("Country", 1, 255, 3)};

constexpr int kForm1 = 1;
constexpr int kForm2 = 2;
constexpr int kForm3 = 3;
constexpr int kTooMuch = 65535;  // in hundredths; some amounts are sent as 0 from here up

/** Writes a field's amount times 100 as 16 bits. */
void PutAmount(RecordWriter& billing, int at, int field) {
  billing.CheckedWord(at, field, ValHundredths(billing.Get(field)));
}

/** Like PutAmount, but leaves the 16 bits 0 from kTooMuch up. */
void PutCappedAmount(RecordWriter& billing, int at, int field) {
  if (ValHundredths(billing.Get(field)) < kTooMuch) PutAmount(billing, at, field);
}

void PutBytes(RecordWriter& billing, int at, int first_field, int last_field) {
  for (int field = first_field; field <= last_field; ++field, ++at) billing.Plain(at, field, kUnsetByte);
}

void PutCountry(const IniText& project, ImageWriter& image) {
  const std::string_view country = KeyValue(project, kCountry);
  ValueWriter(image, kCountry, kCountry.key, country).Byte(26, country.empty() ? 1 : Val(country));
}

void EncodeBilling(const IniText& project, ImageWriter& image, int form) {
  const std::string_view value = KeyValue(project, kTable);
  if (value.empty()) {
    image.Fill(0, image.size(), kUnsetByte);
    return;
  }
  RecordWriter billing(image, 0, kTable, kTable.key, value);
  billing.PlainWord(0, kLocalCode, kUnsetWord);
  PutBytes(billing, 2, kSaveIntercom, kBillFlat);
  PutAmount(billing, 6, kLongDistancePercent);
  PutAmount(billing, 8, kOverseaPercent);
  PutAmount(billing, 10, kMobilePercent);
  PutBytes(billing, 12, kLongDistanceCharge, kMobileCharge);
  PutCappedAmount(billing, 15, kIncomingRate);
  PutCappedAmount(billing, 17, kIntercomRate);
  if (form == kForm3) {
    PutBytes(billing, 19, kTimeExpand, kChargeExpand);
  } else {
    PutCappedAmount(billing, 19, kChargeExpand);
  }
  PutBytes(billing, 21, kLocalTime, kTimeOversea);
  PutCountry(project, image);
  if (form == kForm1) return;
  billing.Plain(27, kPrintMiniBar, kUnsetByte);
  if (form == kForm2) return;
  PutCappedAmount(billing, 28, kAreaPercent);
  billing.Plain(30, kExpandAll, kUnsetByte);
}

/** An amount whose high byte is 255 is not unset: 655.00 is 65,500. */
std::string AmountAt(const ImageReader& image, int at) {
  return FormatHundredths(image.RawWord(at));
}

void AddBytes(RowText& row, const ImageReader& image, int at, int count) {
  for (int i = 0; i < count; ++i) row.Add(image.Plain(at + i));
}

void DecodeBilling(const ImageReader& image, IniEdit& project, int form) {
  constexpr std::string_view kAbsent = "0";
  const int local_code = image.RawWord(0);
  RowText row;
  row.Add(local_code == kUnsetWord ? std::string(kUnset) : Padded(local_code, 2));
  AddBytes(row, image, 2, 4);
  for (const int at : {6, 8, 10}) row.Add(AmountAt(image, at));
  AddBytes(row, image, 12, 3);
  row.Add(AmountAt(image, 15)).Add(AmountAt(image, 17));
  if (form == kForm3) {
    AddBytes(row, image, 19, 2);
  } else {
    row.Add(kAbsent).Add(AmountAt(image, 19));
  }
  row.Add(kAbsent).Add(kAbsent);
  AddBytes(row, image, 21, 5);
  row.Add(form == kForm1 ? std::string(kAbsent) : image.Plain(27));
  row.Add(form == kForm3 ? AmountAt(image, 28) : std::string(kAbsent));
  row.Add(form == kForm3 ? image.Plain(30) : std::string(kAbsent));
  project.Set(kTable.section, kTable.key, row.str());
  project.Set(kCountry.section, kCountry.key, Padded(image.Byte(26), 3));
}

}  // namespace

const Table kTable = {.section = kSystemConfig,
                      .row_name = "Billing Mode",
                      .command = "billingmode",
                      .key = "Billing",
                      .fields = kFields};
const Table kCountry = {.section = kSystemConfig,
                        .row_name = "Billing Mode",
                        .command = "billingmode",
                        .key = "CCode",
                        .fields = kCountryFields};

}  // namespace billing_mode

void EncodeBilling1(const IniText& project, ImageWriter& image) {
  billing_mode::EncodeBilling(project, image, billing_mode::kForm1);
}

void EncodeBilling2(const IniText& project, ImageWriter& image) {
  billing_mode::EncodeBilling(project, image, billing_mode::kForm2);
}

void EncodeBilling3(const IniText& project, ImageWriter& image) {
  billing_mode::EncodeBilling(project, image, billing_mode::kForm3);
}

void DecodeBilling1(const ImageReader& image, IniEdit& project) {
  billing_mode::DecodeBilling(image, project, billing_mode::kForm1);
}

void DecodeBilling2(const ImageReader& image, IniEdit& project) {
  billing_mode::DecodeBilling(image, project, billing_mode::kForm2);
}

void DecodeBilling3(const ImageReader& image, IniEdit& project) {
  billing_mode::DecodeBilling(image, project, billing_mode::kForm3);
}

}  // namespace tarvok::sections
