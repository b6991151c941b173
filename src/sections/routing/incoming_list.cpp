#include "sections/routing/incoming_list.h"

#include <algorithm>
#include <string>

#include "sections/ports/assign.h"
#include "sections/records.h"

namespace tarvok::sections {
namespace incoming_list {
namespace {

constexpr Choice kTargets[] = {{kDidTarget, "DID"}, {"2000", "Map_Digit"}, {"3000", "Wait_Comp"}};

/** A number row or one of the special targets. */
constexpr Field Destination(std::string_view name) {
  return RowOf(name, assign::kTable, 3).Named(kTargets);
}

/** The name has no limit of its own; only the size of a project value limits it. */
constexpr auto kFields = FieldsOf({
    {kName, Text("Name", static_cast<int>(kMaxIniValue))},
    {kNum1, Destination("Num1")},
    {kNum2, Destination("Num2")},
    {kNum3, Destination("Num3")},
    {kTimeOut, Number("Time Out", 1, 254)},
});

constexpr std::string_view kEmptyRows[] = {"F|F|F|F|F"};
constexpr Mark kMarks[] = {{incoming_list::kName, ""}};

constexpr int kRecord = 7;

struct TargetCode {
  std::string_view stored;
  int code;
};
constexpr TargetCode kTargetCodes[] = {
    {kTargets[0].stored, 0xA001}, {kTargets[1].stored, 0xB001}, {kTargets[2].stored, 0xE000}};

void EncodeRow(RecordWriter& row) {
  row.MinusOneWord(0, kNum1);
  for (const TargetCode& target : kTargetCodes) {
    if (row.Get(kNum1) == target.stored) row.Word(0, target.code);
  }
  row.MinusOneWord(2, kNum2);
  row.MinusOneWord(4, kNum3);
  row.Plain(6, kTimeOut, kUnsetByte);
}

std::string DestinationText(int word) {
  if (word == kUnsetWord) return std::string(kUnset);
  for (const TargetCode& target : kTargetCodes) {
    if (word == target.code) return std::string(target.stored);
  }
  return Padded(word + 1, 3);
}

void DecodeRow(const ImageReader& record, int number, RowText& row) {
  const int words[] = {record.RawWord(0), record.RawWord(2), record.RawWord(4)};
  const bool used = std::any_of(std::begin(words), std::end(words), [](int w) { return w != kUnsetWord; });
  row.Add(used ? "Incom" + std::to_string(number) : std::string(kUnset));
  for (const int word : words) row.Add(DestinationText(word));
  row.Add(record.Plain(6));
}

}  // namespace

const Table kTable = {.section = "Incoming_List",
                      .row_name = "Incoming List",
                      .command = "incominglist",
                      .rows = {1, kIncomingRows, 2},
                      .fields = kFields,
                      .empty_rows = kEmptyRows,
                      .marks = kMarks,
                      .now = NowCounts::kRows};

}  // namespace incoming_list

void EncodeIncomingList(const IniText& project, ImageWriter& image) {
  using namespace incoming_list;
  EncodeRows(project, kTable, image, {kRecord, 0, kRecord}, EncodeRow);
}

void DecodeIncomingList(const ImageReader& image, IniEdit& project) {
  using namespace incoming_list;
  StoreRowCounts(project, kTable, kIncomingRows);
  int number = 0;
  DecodeRows(image, project, kTable, kRecord,
             [&](const ImageReader& record, RowText& row) { DecodeRow(record, ++number, row); });
}

}  // namespace tarvok::sections
