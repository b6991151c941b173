#include "sections/ports/assign.h"

#include <string>

#include "sections/rows.h"

namespace tarvok {
namespace assign {
namespace {

constexpr Choice kTypeChoices[] = {
    {"0", "Port"},          {"1", "Hunting Terminate"}, {"2", "Call Group"}, {"3", "Call Group All"},
    {"4", "Hunt Circular"}, {"5", "Hunt Group All"},    {"6", "Hunt ACD"},   {"7", "Boss Number"},
};

constexpr tarvok::Field kFields[] = {
    Digits("Number", 6),
    OneOf("Type", kTypeChoices),
    tarvok::Number("Value", 1, 500),
    tarvok::Number("Company", 0, 4),
    RowOf("Name", "Name", 1, 500, 3),
};

constexpr std::string_view kEmptyRows[] = {"F|F|F|F|F"};

}  // namespace

const Table kTable = {.section = "Assign",
                      .row_name = "Number",
                      .rows = {1, kAssignRows, 3},
                      .fields = kFields,
                      .empty_rows = kEmptyRows};

}  // namespace assign

namespace {

using namespace assign;

constexpr int kRecord = 9;
constexpr int kNumberBytes = 3;

void EncodeNumber(RecordWriter& row) {
  row.Digits(0, kNumberBytes, kNumber);
  row.Plain(3, kType, 255);
  row.MinusOneWord(4, kValue);
  row.Plain(6, kCompany, 255);
  row.MinusOneWord(7, kName);
}

/** Digits of the stored value, by the number's type: a port, a call group, anything else. */
int ValueWidth(int type) {
  if (type == 0) return 3;
  return type == 2 || type == 3 ? 2 : 0;
}

std::string DecodeNumber(const ImageReader& record) {
  // Unlike in a port row a byte 0 is a digit text "0", so a number of zero bytes becomes an empty field, not
  // "F".
  const std::string hex = HexOfBytes(record.Bytes(0, kNumberBytes), SkippedBytes::kUnset);
  RowText row;
  row.Add(hex.empty() ? std::string(kUnset) : DigitsOfHex(hex, DialSymbols::kDigits));
  row.Add(record.Plain(3));
  row.Add(record.PlusOneWord(4, ValueWidth(record.Byte(3))));
  row.Add(record.Plain(6));
  row.Add(record.PlusOneWord(7, 3));
  return row.str();
}

}  // namespace

void EncodeAssign(const IniText& project, ImageWriter& image) {
  const std::int64_t now = Val(project.Get(kTable.section, kNowKey));
  for (int number = 1; number <= kAssignRows; ++number) {
    const int start = (number - 1) * kRecord;
    const std::string key = KeyOf(kTable, number);
    const std::string_view value = Trim(project.Get(kTable.section, key));
    if (number > now || value.empty()) {
      image.Fill(start, kRecord, 255);
      continue;
    }
    RecordWriter row(image, start, kTable, key, value);
    EncodeNumber(row);
  }
}

void DecodeAssign(const ImageReader& image, IniEdit& project) {
  StoreRowCounts(project, kTable, kAssignRows, kAssignRows);
  for (int number = 1; number <= kAssignRows; ++number) {
    StoreRow(project, kTable, number, DecodeNumber(image.Record(number - 1, kRecord)));
  }
}

}  // namespace tarvok
