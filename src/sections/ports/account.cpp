#include "sections/ports/account.h"

#include "sections/ports/assign.h"
#include "sections/ports/port_config.h"
#include "sections/record_layout.h"
#include "sections/routing/tenan.h"

namespace tarvok::sections {
namespace account {
namespace {

constexpr auto kFields = FieldsOf({
    {kAccount, Digits("Account", 6)},
    {kPassword, Digits("Password", 4).Secret()},
    {kNumber, RowOf("Number", assign::kTable, 3).LoadedUnpadded()},
    {kConfig, AnyRowOf("Config", port_config::kTable, 0)},
    {kTenan, AnyRowOf("Tenan", tenan::kDayTable, 0)},
    {kTime, Number("Time (sec)", 0, 9999)},
});

constexpr std::string_view kEmptyRows[] = {"F|F|F|F|F|F"};
constexpr Mark kMarks[] = {{kAccount, ""}};
constexpr int kAccountField[] = {kAccount};
constexpr Unique kUnique[] = {{kAccountField, "account"}};

void PutNumber(RecordWriter& row, int at, int field) {
  const bool has_account = row.IsSet(kAccount);
  const bool has_password = row.IsSet(kPassword);
  if (has_account && has_password && row.Value(field) > 0) {
    row.MinusOneWord(at, field);
  } else {
    row.Fill(at, 2, kUnsetByte);
    if (has_account || has_password || row.IsSet(field)) row.Byte(at, 254);
  }
}

constexpr RecordLayout kRecord({
    {0, kAccount, kPacked<3>},
    {3, kPassword, kPacked<2>},
    {5, kNumber, kMinusOneWord<>.PutBy(PutNumber)},  // 254, 255 is read as not set: its high byte is 255
    {7, kConfig, kMinusOne<>},
    {8, kTenan, kMinusOne<>},
    {9, kTime, kWord},
});

}  // namespace

const Table kTable = {.section = "Account",
                      .row_name = "Account",
                      .command = "account",
                      .rows = {1, kAccountRows, 3},
                      .fields = kFields,
                      .record = kRecord.items(),
                      .empty_rows = kEmptyRows,
                      .marks = kMarks,
                      .unique = kUnique};

}  // namespace account

void EncodeAccount(const IniText& project, ImageWriter& image) {
  using namespace account;
  EncodeRows(project, kTable, image, kRecord.AllUnset(), kRecord);
}

void DecodeAccount(const ImageReader& image, IniEdit& project) {
  using namespace account;
  DecodeRows(image, project, kTable, kRecord.size(), kRecord);
}

}  // namespace tarvok::sections
