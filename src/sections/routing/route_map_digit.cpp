#include "sections/routing/route_map_digit.h"

#include <algorithm>
#include <string>

#include "sections/routing/record_parts.h"

namespace tarvok {
namespace route_map_digit {
namespace {

constexpr int kMostDigits = 20;
constexpr std::string_view kExtension = "101";
constexpr Choice kSendChoices[] = {{"1", "DID Ext"}, {"0", "DID Grp"}};
constexpr Choice kListChoices[] = {{kExtension, "Extension"}};
constexpr Choice kTimeoutChoices[] = {{"0", ""}, {"255", "No Limit"}};

/** Beside a row's number or a plain number some fields have values with a name of their own. */
constexpr tarvok::Field kFields[] = {
    Digits("Digit", kMostDigits, "*#-:CLNPUWXYZ"),
    OneOf("Send Number", kSendChoices),
    {.name = "Route List",
     .kind = FieldKind::kRow,
     .low = 1,
     .high = 50,
     .width = 2,
     .choices = kListChoices,
     .points_at = "Route_List"},
    Flag("Release CO"),
    {.name = "Timeout", .kind = FieldKind::kNumber, .low = 0, .high = 255, .choices = kTimeoutChoices},
};

/** Rows of nothing as the two loads and the editor spell them. The editor keeps the last one, which makes a
 * difference in section 43 alone. */
constexpr std::string_view kEmptyRows[] = {"F|F|F", "F|F|F|F", "F|F|F|F|F", "F|F|F|F|0"};

}  // namespace

const Table kTable = {.section = "Route_Map_Digit",
                      .row_name = "Route Map Digit",
                      .rows = {1, kRouteMapRows, 3},
                      .fields = kFields,
                      .empty_rows = kEmptyRows};

}  // namespace route_map_digit

namespace {

using namespace route_map_digit;

constexpr int kShortRecord = 22;
constexpr int kLongRecord = 23;
constexpr int kExtensionByte = 101;
constexpr char kStarByte = 0x3B;
constexpr char kHashByte = 0x3C;

/** What both layouts share, the pattern given as it travels. */
void EncodeRow(RecordWriter& row, std::string_view pattern) {
  PutText(row, 0, kMostDigits, pattern);
  row.Plain(20, kSendNumber, row.Get(kSendNumber) == kUnset ? kUnsetByte : 0);
  if (row.Get(kRouteList) == kExtension) {
    row.Byte(21, kExtensionByte);
  } else {
    row.MinusOne(21, kRouteList);
  }
}

void EncodeShort(RecordWriter& row) {
  EncodeRow(row, TextOf(row, kDigit));
}

void EncodeLong(RecordWriter& row) {
  std::string pattern(TextOf(row, kDigit));
  std::replace(pattern.begin(), pattern.end(), '*', kStarByte);
  std::replace(pattern.begin(), pattern.end(), '#', kHashByte);
  EncodeRow(row, pattern);
  row.Plain(22, kReleaseCo, kUnsetByte);
}

std::string ListText(const ImageReader& record) {
  return record.Byte(21) == kExtensionByte ? std::string(kExtension) : record.PlusOne(21, 2);
}

std::string DecodeShort(const ImageReader& record) {
  RowText row;
  row.Add(JoinedText(record, 0, kMostDigits)).Add(record.Plain(20)).Add(ListText(record));
  return row.str();
}

std::string DecodeLong(const ImageReader& record) {
  std::string pattern = JoinedText(record, 0, kMostDigits);
  std::replace(pattern.begin(), pattern.end(), kStarByte, '*');
  std::replace(pattern.begin(), pattern.end(), kHashByte, '#');
  RowText row;
  row.Add(pattern).Add(record.Plain(20)).Add(ListText(record)).Add(record.Plain(22));
  return row.str();
}

void DecodeRows(const ImageReader& image, IniEdit& project, int size,
                std::string (*decode)(const ImageReader&)) {
  StoreMax(project, kTable);
  for (int number = 1; number <= kRouteMapRows; ++number) {
    StoreRow(project, kTable, number, decode(image.Record(number - 1, size)));
  }
}

}  // namespace

void EncodeRouteMapDigit22(const IniText& project, ImageWriter& image) {
  EncodeRecords(project, kTable, image, {kShortRecord, kMostDigits, 2}, EncodeShort);
}

void EncodeRouteMapDigit23(const IniText& project, ImageWriter& image) {
  EncodeRecords(project, kTable, image, {kLongRecord, kMostDigits, 3}, EncodeLong);
}

void DecodeRouteMapDigit22(const ImageReader& image, IniEdit& project) {
  DecodeRows(image, project, kShortRecord, DecodeShort);
}

void DecodeRouteMapDigit23(const ImageReader& image, IniEdit& project) {
  DecodeRows(image, project, kLongRecord, DecodeLong);
}

void EncodeRouteTimeLimit(const IniText& project, ImageWriter& image) {
  EncodeRecords(project, kTable, image, {1, 0, 1}, [](RecordWriter& row) { row.Plain(0, kTimeout, 0); });
}

void DecodeRouteTimeLimit(const ImageReader& image, IniEdit& project) {
  for (int number = 1; number <= kRouteMapRows; ++number) {
    const std::string key = KeyOf(kTable, number);
    const std::string value = project.Get(kTable.section, key);
    const std::string_view row = Trim(value);
    if (row.empty()) continue;
    project.Set(kTable.section, key, std::string(row) + "|" + std::to_string(image.Byte(number - 1)));
  }
}

}  // namespace tarvok
