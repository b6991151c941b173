#include "sections/routing/e1_number.h"

#include "sections/routing/e1_map.h"
#include "sections/rows.h"

namespace tarvok::sections {
namespace e1_number {
namespace {

constexpr int kMostDigits = 20;

constexpr Field kFields[] = {
    RowOf("E1", e1_map::kTable, 2).LoadedUnpadded(),
    Digits("Numbering", kMostDigits, "*#"),
    Number("Digit Check", 0, 99),
};

/** An unused row as written by a load and by the editor; neither removes the key. */
constexpr std::string_view kEmptyRows[] = {"F|F|F"};

}  // namespace

const Table kTable = {.section = "E1Number",
                      .row_name = "E1 Numbering",
                      .command = "e1numbering",
                      .rows = {1, kE1NumberRows, 2},
                      .fields = kFields,
                      .empty_rows = kEmptyRows};

namespace {

constexpr int kRecord = 12;
constexpr int kNumberBytes = kMostDigits / 2;

void EncodeRow(RecordWriter& row) {
  row.Digits(0, kNumberBytes, kNumbering, DialSymbols::kDigitsStarHash);
  row.Hex(10, kDigitCheck);
  row.MinusOne(11, kLink);
}

void DecodeRow(const ImageReader& record, RowText& row) {
  row.Add(record.PlusOne(11));
  row.AddDigits(record.Bytes(0, kNumberBytes), DialSymbols::kDigitsStarHash, SkippedBytes::kNone);
  row.Add(record.Plain(10));
}

}  // namespace

}  // namespace e1_number

void EncodeE1Number(const IniText& project, ImageWriter& image) {
  using namespace e1_number;
  EncodeRows(project, kTable, image, {kRecord, kNumberBytes, 2}, EncodeRow);
}

void DecodeE1Number(const ImageReader& image, IniEdit& project) {
  using namespace e1_number;
  StoreMax(project, kTable);
  RowText row;
  for (int number = 1; number <= kE1NumberRows; ++number) {
    DecodeRow(image.Record(number - 1, kRecord), row.Clear());
    project.Set(kTable.section, KeyOf(kTable, number), row.str());
  }
}

}  // namespace tarvok::sections
