#include "sections/ports/assign.h"

#include "sections/ports/boss.h"
#include "sections/ports/hunt_group.h"
#include "sections/ports/name.h"
#include "sections/ports/port_def.h"
#include "sections/record_layout.h"

namespace tarvok::sections {
namespace assign {
namespace {

constexpr Choice kTypeChoices[] = {
    {"0", "Port"},          {"1", "Hunting Terminate"}, {"2", "Call Group"}, {"3", "Call Group All"},
    {"4", "Hunt Circular"}, {"5", "Hunt Group All"},    {"6", "Hunt ACD"},   {"7", "Boss Number"},
};

constexpr Field kPort = RowOf("Value", port_def::kTable, 3);
constexpr Field kHuntGroup = RowOf("Value", hunt_group::kTable, 0);
constexpr Field kCallGroup = Number("Value", 1, 99, 2);
constexpr Field kBoss = RowOf("Value", boss::kTable, 0);
constexpr Meaning kValues[] = {{"0", &kPort},      {"1", &kHuntGroup}, {"2", &kCallGroup}, {"3", &kCallGroup},
                               {"4", &kHuntGroup}, {"5", &kHuntGroup}, {"6", &kHuntGroup}, {"7", &kBoss}};

constexpr auto kFields = FieldsOf({
    {kNumber, Digits("Number", 6)},
    {kType, OneOf("Type", kTypeChoices)},
    {kValue, DecidedBy("Value", kType, kValues)},
    {kCompany, Number("Company", 0, 4)},
    {kName, RowOf("Name", name::kTable, 3)},
});

constexpr std::string_view kEmptyRows[] = {"F|F|F|F|F"};
constexpr Mark kMarks[] = {{kNumber, ""}};
constexpr int kNumberField[] = {kNumber};
constexpr int kValueField[] = {kValue};
constexpr Unique kUnique[] = {{kNumberField, "number"}, {kValueField, "port", kType, "0"}};

/** A byte 0 ends the number, unlike in a port's record. */
void ReadNumber(const ImageReader& record, int at, RowText& row) {
  row.AddDigits(record.Bytes(at, 3), DialSymbols::kDigits, SkippedBytes::k255);
}

/** The type decides how many digits the stored value has. */
void ReadValue(const ImageReader& record, int at, RowText& row) {
  const int type = record.Byte(3);
  row.Add(record.PlusOneWord(at, type == 0 ? 3 : type == 2 || type == 3 ? 2 : 0));
}

constexpr RecordLayout kRecord({
    {0, kNumber, kPacked<3>.ReadBy(ReadNumber)},
    {3, kType, kByte},
    {4, kValue, kMinusOneWord<>.ReadBy(ReadValue)},
    {6, kCompany, kByte},
    {7, kName, kMinusOneWord<3>},
});

}  // namespace

const Table kTable = {.section = "Assign",
                      .row_name = "Number",
                      .command = "ext",
                      .rows = {1, kAssignRows, 3},
                      .fields = kFields,
                      .record = kRecord.items(),
                      .empty_rows = kEmptyRows,
                      .marks = kMarks,
                      .needs = kNumberField,
                      .unique = kUnique,
                      .now = NowCounts::kRows};

}  // namespace assign

void EncodeAssign(const IniText& project, ImageWriter& image) {
  using namespace assign;
  const std::int64_t now = Val(project.Get(kTable.section, kNowKey));
  EncodeRows(project, kTable, image, kRecord.AllUnset(), kRecord, now);
}

void DecodeAssign(const ImageReader& image, IniEdit& project) {
  using namespace assign;
  StoreRowCounts(project, kTable, kAssignRows);
  DecodeRows(image, project, kTable, kRecord.size(), kRecord);
}

}  // namespace tarvok::sections
