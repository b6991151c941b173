#include "sections/ports/assign.h"

#include "sections/ports/boss.h"
#include "sections/ports/hunt_group.h"
#include "sections/ports/name.h"
#include "sections/ports/port_def.h"
#include "sections/rows.h"

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

constexpr Field kFields[] = {
    Digits("Number", 6),     OneOf("Type", kTypeChoices),    DecidedBy("Value", kType, kValues),
    Number("Company", 0, 4), RowOf("Name", name::kTable, 3),
};

constexpr std::string_view kEmptyRows[] = {"F|F|F|F|F"};
constexpr Mark kMarks[] = {{kNumber, ""}};
constexpr int kNumberField[] = {kNumber};
constexpr int kValueField[] = {kValue};
constexpr Unique kUnique[] = {{kNumberField, "number"}, {kValueField, "port", kType, "0"}};

}  // namespace

const Table kTable = {.section = "Assign",
                      .row_name = "Number",
                      .command = "ext",
                      .rows = {1, kAssignRows, 3},
                      .fields = kFields,
                      .empty_rows = kEmptyRows,
                      .marks = kMarks,
                      .needs = kNumberField,
                      .unique = kUnique,
                      .now = NowCounts::kRows};

namespace {

constexpr int kRecord = 9;
constexpr int kNumberBytes = 3;

void EncodeNumber(RecordWriter& row) {
  row.Digits(0, kNumberBytes, kNumber);
  row.Plain(3, kType, 255);
  row.MinusOneWord(4, kValue);
  row.Plain(6, kCompany, 255);
  row.MinusOneWord(7, kName);
}

/** How many digits the stored value is padded to, by the number's type. */
int ValueWidth(int type) {
  if (type == 0) return 3;
  return type == 2 || type == 3 ? 2 : 0;
}

void DecodeNumber(const ImageReader& record, RowText& row) {
  // Unlike in a port row, a byte 0 ends the number.
  row.AddDigits(record.Bytes(0, kNumberBytes), DialSymbols::kDigits, SkippedBytes::k255);
  row.Add(record.Plain(3));
  row.Add(record.PlusOneWord(4, ValueWidth(record.Byte(3))));
  row.Add(record.Plain(6));
  row.Add(record.PlusOneWord(7, 3));
}

}  // namespace

}  // namespace assign

void EncodeAssign(const IniText& project, ImageWriter& image) {
  using namespace assign;
  const std::int64_t now = Val(project.Get(kTable.section, kNowKey));
  EncodeRowsTo(now, project, kTable, image, {kRecord, 0, kRecord}, EncodeNumber);
}

void DecodeAssign(const ImageReader& image, IniEdit& project) {
  using namespace assign;
  StoreRowCounts(project, kTable, kAssignRows);
  DecodeRows(image, project, kTable, kRecord, DecodeNumber);
}

}  // namespace tarvok::sections
