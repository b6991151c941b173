#include "sections/routing/route_map_digit.h"

#include <algorithm>
#include <string>

#include "sections/records.h"
#include "sections/routing/route_list.h"

namespace tarvok::sections {
namespace route_map_digit {
namespace {

constexpr int kMostDigits = 20;
constexpr std::string_view kExtension = "101";
constexpr Choice kSendChoices[] = {{"1", "DID Ext"}, {"0", "DID Grp"}};
constexpr Choice kListChoices[] = {{kExtension, "Extension"}};
constexpr Choice kReleaseChoices[] = {{"0", "0"}, {"1", "1"}};
constexpr Choice kTimeoutChoices[] = {{"255", "No Limit"}};

constexpr auto kFields = FieldsOf({
    {kDigit, Digits("Digit", kMostDigits, "*#-:CLNPUWXYZ")},
    {kSendNumber, OneOf("Send Number", kSendChoices)},
    {kRouteList, RowOf("Route List", route_list::kTable, 2).Named(kListChoices)},
    {kReleaseCo, OneOf("Release CO", kReleaseChoices)},
    {kTimeout, Number("Timeout", 1, 254).Named(kTimeoutChoices).UnsetAs("0")},
});

/** Unused rows as the two layouts and the editor write them. The editor keeps the last one, which matters
 * only in section 43. */
constexpr std::string_view kEmptyRows[] = {"F|F|F", "F|F|F|F", "F|F|F|F|F", "F|F|F|F|0"};
constexpr Mark kMarks[] = {{kDigit, ""}};
constexpr int kFieldsInShortLayout = 3;

constexpr int kShortRecord = 22;
constexpr int kLongRecord = 23;
constexpr int kExtensionByte = 101;
constexpr char kStarByte = 0x3B;
constexpr char kHashByte = 0x3C;

/** Writes the fields that both layouts have. `pattern` is the digits as sent. */
void EncodeRow(RecordWriter& row, std::string_view pattern) {
  row.Text(0, kMostDigits, pattern);
  row.Plain(20, kSendNumber, row.Get(kSendNumber) == kUnset ? kUnsetByte : 0);
  if (row.Get(kRouteList) == kExtension) {
    row.Byte(21, kExtensionByte);
  } else {
    row.MinusOne(21, kRouteList);
  }
}

void EncodeShort(RecordWriter& row) {
  EncodeRow(row, row.SetText(kDigit));
}

void EncodeLong(RecordWriter& row) {
  std::string pattern(row.SetText(kDigit));
  std::replace(pattern.begin(), pattern.end(), '*', kStarByte);
  std::replace(pattern.begin(), pattern.end(), '#', kHashByte);
  EncodeRow(row, pattern);
  row.Plain(22, kReleaseCo, kUnsetByte);
}

std::string ListText(const ImageReader& record) {
  return record.Byte(21) == kExtensionByte ? std::string(kExtension) : record.PlusOne(21, 2);
}

void DecodeShort(const ImageReader& record, RowText& row) {
  row.AddText(record.Bytes(0, kMostDigits)).Add(record.Plain(20)).Add(ListText(record));
}

void DecodeLong(const ImageReader& record, RowText& row) {
  row.AddText(record.Bytes(0, kMostDigits));
  row.Replace(kStarByte, '*').Replace(kHashByte, '#');
  row.Add(record.Plain(20)).Add(ListText(record)).Add(record.Plain(22));
}

}  // namespace

const Table kTable = {.section = "Route_Map_Digit",
                      .row_name = "Route Map Digit",
                      .command = "routemap",
                      .rows = {1, kRouteMapRows, 3},
                      .fields = kFields,
                      .empty_rows = kEmptyRows,
                      .fewest_fields = kFieldsInShortLayout,
                      .marks = kMarks};

}  // namespace route_map_digit

void EncodeRouteMapDigit22(const IniText& project, ImageWriter& image) {
  using namespace route_map_digit;
  EncodeRows(project, kTable, image, {kShortRecord, kMostDigits, 2}, EncodeShort);
}

void EncodeRouteMapDigit23(const IniText& project, ImageWriter& image) {
  using namespace route_map_digit;
  EncodeRows(project, kTable, image, {kLongRecord, kMostDigits, 3}, EncodeLong);
}

void DecodeRouteMapDigit22(const ImageReader& image, IniEdit& project) {
  using namespace route_map_digit;
  StoreMax(project, kTable);
  DecodeRows(image, project, kTable, kShortRecord, DecodeShort);
}

void DecodeRouteMapDigit23(const ImageReader& image, IniEdit& project) {
  using namespace route_map_digit;
  StoreMax(project, kTable);
  DecodeRows(image, project, kTable, kLongRecord, DecodeLong);
}

void EncodeRouteTimeLimit(const IniText& project, ImageWriter& image) {
  using namespace route_map_digit;
  EncodeRows(project, kTable, image, {1, 0, 1}, [](RecordWriter& row) { row.Plain(0, kTimeout, 0); });
}

void DecodeRouteTimeLimit(const ImageReader& image, IniEdit& project) {
  using namespace route_map_digit;
  RowText row;
  for (int number = 1; number <= kRouteMapRows; ++number) {
    const std::string key = KeyOf(kTable, number);
    const std::string_view held = Trim(project.View(kTable.section, key));
    if (held.empty()) continue;
    row.Clear().Add(held).Add(std::to_string(image.Byte(number - 1)));
    project.Set(kTable.section, key, row.str());
  }
}

}  // namespace tarvok::sections
