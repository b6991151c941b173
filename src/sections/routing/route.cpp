#include "sections/routing/route.h"

#include <string>

#include "sections/routing/group_out.h"
#include "sections/rows.h"
#include "store/value_code.h"

namespace tarvok::sections {
namespace route {
namespace {

constexpr int kTextBytes = 20;
constexpr Choice kSeekChoices[] = {{"0", "Start"}, {"1", "End"}, {"2", "Cycle"}, {"3", "Link CO"}};
constexpr Choice kDayChoices[] = {{"1", "SUN"}, {"2", "MON"}, {"3", "TUE"}, {"4", "WED"},
                                  {"5", "THU"}, {"6", "FRI"}, {"7", "SAT"}};

constexpr Field kFields[] = {
    RowOf("Group", group_out::kTable, 2),
    OneOf("Type Seek", kSeekChoices),
    OneOf("Day", kDayChoices).UnsetAs("0"),
    Number("Date", 1, 31),
    Number("Month", 1, 12),
    Time("Start Time"),
    Time("End Time"),
    Digits("Type Send", kTextBytes, "*#AEPX"),
    Digits("Type Save", kTextBytes, "*#AENPX"),
};

/** The last row that the editor can write: 50 lists of 40 routes. */
constexpr int kMostRoutes = 2000;
constexpr std::string_view kEmptyRows[] = {"F|F|0|F|F|F|F|F|F"};

}  // namespace

const Table kTable = {.section = "Route",
                      .row_name = "Route",
                      .command = "route",
                      .rows = {.first = 1, .last = kRouteRows, .width = 3, .kept = kMostRoutes},
                      .fields = kFields,
                      .empty_rows = kEmptyRows};

namespace {

constexpr int kRecord = 49;

/** Writes the first two and the last two characters, each pair read as hexadecimal. */
void EncodeTime(RecordWriter& row, int at, int field) {
  if (!row.IsSet(field)) {
    row.Fill(at, 2, kUnsetByte);
    return;
  }
  const std::string_view time = row.Get(field);
  row.Checked(at, field, ValHex(time.substr(0, 2)));
  row.Checked(at + 1, field, ValHex(time.size() > 2 ? time.substr(time.size() - 2) : time));
}

void EncodeRow(RecordWriter& row) {
  row.MinusOne(0, kGroup);
  row.Plain(1, kTypeSeek, kUnsetByte);
  row.MinusOne(2, kDay);
  row.Hex(3, kDate);
  row.Hex(4, kMonth);
  EncodeTime(row, 5, kStartTime);
  EncodeTime(row, 7, kEndTime);
  row.Text(9, kTextBytes, row.SetText(kTypeSend));
  row.Text(29, kTextBytes, row.SetText(kTypeSave));
}

std::string HexText(int byte, std::size_t width) {
  std::string text = DecToHex(static_cast<std::uint64_t>(byte));
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

std::string DecodeHex(const ImageReader& record, int at) {
  return record.Byte(at) == kUnsetByte ? std::string(kUnset) : HexText(record.Byte(at), 1);
}

std::string DecodeTime(const ImageReader& record, int at) {
  const int hour = record.Byte(at);
  const int minute = record.Byte(at + 1);
  if (hour == kUnsetByte || minute == kUnsetByte) return std::string(kUnset);
  return HexText(hour, 2) + HexText(minute, 2);
}

void DecodeRow(const ImageReader& record, RowText& row) {
  row.Add(record.PlusOne(0, 2)).Add(record.Plain(1));
  row.Add(record.Byte(2) == kUnsetByte ? "0" : record.PlusOne(2));
  row.Add(DecodeHex(record, 3)).Add(DecodeHex(record, 4));
  row.Add(DecodeTime(record, 5)).Add(DecodeTime(record, 7));
  for (const int at : {9, 29}) row.AddText(record.Bytes(at, kTextBytes));
}

}  // namespace

}  // namespace route

void EncodeRoute(const IniText& project, ImageWriter& image) {
  using namespace route;
  EncodeRows(project, kTable, image, {kRecord, 0, 9}, EncodeRow);
}

void DecodeRoute(const ImageReader& image, IniEdit& project) {
  using namespace route;
  StoreMax(project, kTable);
  RowText row;
  for (int number = 1; number <= kRouteRows; ++number) {
    const ImageReader record = image.Record(number - 1, kRecord);
    if (record.Byte(0) == kUnsetByte) {
      project.DeleteKey(kTable.section, KeyOf(kTable, number));
    } else {
      DecodeRow(record, row.Clear());
      project.Set(kTable.section, KeyOf(kTable, number), row.str());
    }
  }
}

}  // namespace tarvok::sections
