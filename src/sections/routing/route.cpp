#include "sections/routing/route.h"

#include <string>

#include "sections/record_layout.h"
#include "sections/routing/group_out.h"
#include "store/value_code.h"

namespace tarvok::sections {
namespace route {
namespace {

constexpr int kTextBytes = 20;
constexpr Choice kSeekChoices[] = {{"0", "Start"}, {"1", "End"}, {"2", "Cycle"}, {"3", "Link CO"}};
constexpr Choice kDayChoices[] = {{"1", "SUN"}, {"2", "MON"}, {"3", "TUE"}, {"4", "WED"},
                                  {"5", "THU"}, {"6", "FRI"}, {"7", "SAT"}};

constexpr auto kFields = FieldsOf({
    {kGroup, RowOf("Group", group_out::kTable, 2)},
    {kTypeSeek, OneOf("Type Seek", kSeekChoices)},
    {kDay, OneOf("Day", kDayChoices).UnsetAs("0")},
    {kDate, Number("Date", 1, 31)},
    {kMonth, Number("Month", 1, 12)},
    {kStartTime, Time("Start Time")},
    {kEndTime, Time("End Time")},
    {kTypeSend, Digits("Type Send", kTextBytes, "*#AEPX")},
    {kTypeSave, Digits("Type Save", kTextBytes, "*#AENPX")},
});

/** The last row that the editor can write: 50 lists of 40 routes. */
constexpr int kMostRoutes = 2000;
constexpr std::string_view kEmptyRows[] = {"F|F|0|F|F|F|F|F|F"};

/** Writes the first two and the last two characters, each pair read as hexadecimal. */
void PutTime(RecordWriter& row, int at, int field) {
  if (!row.IsSet(field)) {
    row.Fill(at, 2, kUnsetByte);
    return;
  }
  const std::string_view time = row.Get(field);
  row.Checked(at, field, ValHex(time.substr(0, 2)));
  row.Checked(at + 1, field, ValHex(time.size() > 2 ? time.substr(time.size() - 2) : time));
}

std::string HexText(int byte, std::size_t width) {
  std::string text = DecToHex(static_cast<std::uint64_t>(byte));
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

void ReadDigits(const ImageReader& record, int at, RowText& row) {
  row.Add(record.Byte(at) == kUnsetByte ? std::string(kUnset) : HexText(record.Byte(at), 1));
}

void ReadTime(const ImageReader& record, int at, RowText& row) {
  const int hour = record.Byte(at);
  const int minute = record.Byte(at + 1);
  const bool set = hour != kUnsetByte && minute != kUnsetByte;
  row.Add(set ? HexText(hour, 2) + HexText(minute, 2) : std::string(kUnset));
}

void ReadDay(const ImageReader& record, int at, RowText& row) {
  row.Add(record.Byte(at) == kUnsetByte ? "0" : record.PlusOne(at));
}

constexpr Rule kDigits = kPackedByte.ReadBy(ReadDigits);
constexpr Rule kTime = {2, PutTime, ReadTime, "packed digits"};

constexpr RecordLayout kRecord({
    {0, kGroup, kMinusOne<2>},
    {1, kTypeSeek, kByte},
    {2, kDay, kMinusOne<>.ReadBy(ReadDay)},
    {3, kDate, kDigits},
    {4, kMonth, kDigits},
    {5, kStartTime, kTime},
    {7, kEndTime, kTime},
    {9, kTypeSend, kCharacters<kTextBytes>},
    {29, kTypeSave, kCharacters<kTextBytes>},
});

}  // namespace

const Table kTable = {.section = "Route",
                      .row_name = "Route",
                      .command = "route",
                      .rows = {.first = 1, .last = kRouteRows, .width = 3, .kept = kMostRoutes},
                      .fields = kFields,
                      .record = kRecord.items(),
                      .empty_rows = kEmptyRows};

}  // namespace route

void EncodeRoute(const IniText& project, ImageWriter& image) {
  using namespace route;
  EncodeRows(project, kTable, image, {kRecord.size(), 0, 9}, kRecord);
}

void DecodeRoute(const ImageReader& image, IniEdit& project) {
  using namespace route;
  StoreMax(project, kTable);
  const auto decode = [](const ImageReader& record, RowText& row) {
    const bool has_group = record.Byte(0) != kUnsetByte;
    if (has_group) kRecord(record, row);
  };
  DecodeRows(image, project, kTable, kRecord.size(), decode, BlankUnused);
}

}  // namespace tarvok::sections
