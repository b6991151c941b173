#include "sections/routing/e1_number.h"

#include "sections/record_layout.h"
#include "sections/routing/e1_map.h"

namespace tarvok::sections {
namespace e1_number {
namespace {

constexpr int kMostDigits = 20;

constexpr auto kFields = FieldsOf({
    {kLink, RowOf("E1", e1_map::kTable, 2).LoadedUnpadded()},
    {kNumbering, Digits("Numbering", kMostDigits, "*#")},
    {kDigitCheck, Number("Digit Check", 0, 99)},
});

/** An unused row as written by a load and by the editor; neither removes the key. */
constexpr std::string_view kEmptyRows[] = {"F|F|F"};

constexpr int kNumberBytes = kMostDigits / 2;

void PutNumbering(RecordWriter& row, int at, int field) {
  row.Digits(at, kNumberBytes, field, DialSymbols::kDigitsStarHash);
}

/** Bytes of 255 are digits here, and a byte 0 ends the number even at its start. */
void ReadNumbering(const ImageReader& record, int at, RowText& row) {
  row.AddDigits(record.Bytes(at, kNumberBytes), DialSymbols::kDigitsStarHash, SkippedBytes::kNone);
}

constexpr RecordLayout kRecord({
    {0, kNumbering, {kNumberBytes, PutNumbering, ReadNumbering, "packed digits with * and #"}},
    {kNumberBytes, kDigitCheck, kPackedByte},
    {11, kLink, kMinusOne<>},
});

}  // namespace

const Table kTable = {.section = "E1Number",
                      .row_name = "E1 Numbering",
                      .command = "e1numbering",
                      .rows = {1, kE1NumberRows, 2},
                      .fields = kFields,
                      .record = kRecord.items(),
                      .empty_rows = kEmptyRows};

}  // namespace e1_number

void EncodeE1Number(const IniText& project, ImageWriter& image) {
  using namespace e1_number;
  EncodeRows(project, kTable, image, {kRecord.size(), kNumberBytes, 2}, kRecord);
}

void DecodeE1Number(const ImageReader& image, IniEdit& project) {
  using namespace e1_number;
  StoreMax(project, kTable);
  DecodeRows(image, project, kTable, kRecord.size(), kRecord, NoneUnused);
}

}  // namespace tarvok::sections
