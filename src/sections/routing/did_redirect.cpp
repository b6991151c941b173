#include "sections/routing/did_redirect.h"

#include <string>

#include "sections/ports/assign.h"
#include "sections/record_layout.h"
#include "sections/routing/e1_map.h"
#include "sections/routing/route_list.h"

namespace tarvok::sections {
namespace did_redirect {
namespace {

constexpr Choice kTypeChoices[] = {
    {"0", "Number"}, {"1", "Route List"}, {"2", "Route Digit"}, {"3", "Not Exist"}, {"4", "Auto Answer"}};

constexpr Field kToNumber = RowOf("Map Number", assign::kTable, 3);
constexpr Field kToList = RowOf("Map Number", route_list::kTable, 2);
constexpr Meaning kMapNumbers[] = {{"0", &kToNumber}, {"1", &kToList}};

constexpr auto kFields = FieldsOf({
    {kLink, RowOf("E1", e1_map::kTable, 0)},
    {kDidStart, Digits("DID Start", 4)},
    {kDidEnd, Digits("DID End", 4)},
    {kMapType, OneOf("Map Type", kTypeChoices)},
    {kMapNumber, DecidedBy("Map Number", kMapType, kMapNumbers)},
});

constexpr std::string_view kEmptyRows[] = {"F|F|F|F|F"};
constexpr Mark kMarks[] = {{kDidStart, "from"}, {kDidEnd, "to"}};

constexpr int kRouteListBase = 0xA000;
constexpr int kRouteDigit = 0xB000;
constexpr int kNotExist = 0xC000;
constexpr int kAutoAnswer = 0xD000;

/** Writes the number row or list -1 into the range from `base` up to, but not including, `limit`. */
void EncodeMapNumber(RecordWriter& row, int base, int limit) {
  const std::int64_t number = row.Value(kMapNumber);
  if (number > limit - base) {
    row.TooLarge(kMapNumber);
    return;
  }
  row.Word(5, number < 1 ? kUnsetWord : base + static_cast<int>(number) - 1);
}

void PutTarget(RecordWriter& row, int /*at*/, int /*field*/) {
  const std::string_view type = row.Get(kMapType);
  if (type == "0") {
    EncodeMapNumber(row, 0, kRouteListBase);
  } else if (type == "1") {
    EncodeMapNumber(row, kRouteListBase, kRouteDigit);
  } else {
    row.Word(5, type == "2" ? kRouteDigit : type == "3" ? kNotExist : type == "4" ? kAutoAnswer : kUnsetWord);
  }
}

/** Map Type and Map Number for a target. */
std::string TargetText(int word) {
  if (word == kUnsetWord) return "F|F";
  if (word >= kAutoAnswer) return "4|F";
  if (word >= kNotExist) return "3|F";
  if (word >= kRouteDigit) return "2|F";
  if (word >= kRouteListBase) return "1|" + Padded(word - kRouteListBase + 1, 2);
  return "0|" + Padded(word + 1, 3);
}

void ReadTarget(const ImageReader& record, int at, RowText& row) {
  row.Add(TargetText(record.Word(at)));
}

constexpr RecordLayout kRecord({
    {0, kDidStart, kWord},
    {2, kDidEnd, kWord},
    {4, kLink, kMinusOne<>},
    {5, kMapType, {2, PutTarget, ReadTarget, "and Map Number"}},
});

}  // namespace

const Table kTable = {.section = "DIDRedirect",
                      .row_name = "DID Redirect",
                      .command = "didredirect",
                      .rows = {1, kDidRows, 3},
                      .fields = kFields,
                      .record = kRecord.items(),
                      .empty_rows = kEmptyRows,
                      .marks = kMarks};

}  // namespace did_redirect

void EncodeDIDRedirect(const IniText& project, ImageWriter& image) {
  using namespace did_redirect;
  EncodeRows(project, kTable, image, kRecord.AllUnset(), kRecord);
}

void DecodeDIDRedirect(const ImageReader& image, IniEdit& project) {
  using namespace did_redirect;
  StoreMax(project, kTable);
  DecodeRows(image, project, kTable, kRecord.size(), kRecord);
}

}  // namespace tarvok::sections
