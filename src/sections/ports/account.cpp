#include "sections/ports/account.h"

#include <string>

#include "sections/ports/assign.h"
#include "sections/ports/port_config.h"
#include "sections/routing/tenan.h"
#include "sections/rows.h"

namespace tarvok::sections {
namespace account {
namespace {

constexpr Field kFields[] = {
    Digits("Account", 6),
    Digits("Password", 4).Secret(),
    RowOf("Number", assign::kTable, 3).LoadedUnpadded(),
    AnyRowOf("Config", port_config::kTable, 0),
    AnyRowOf("Tenan", tenan::kDayTable, 0),
    Number("Time (sec)", 0, 9999),
};

constexpr std::string_view kEmptyRows[] = {"F|F|F|F|F|F"};
constexpr Mark kMarks[] = {{kAccount, ""}};
constexpr int kAccountField[] = {kAccount};
constexpr Unique kUnique[] = {{kAccountField, "account"}};

}  // namespace

const Table kTable = {.section = "Account",
                      .row_name = "Account",
                      .command = "account",
                      .rows = {1, kAccountRows, 3},
                      .fields = kFields,
                      .empty_rows = kEmptyRows,
                      .marks = kMarks,
                      .unique = kUnique};

namespace {

constexpr int kRecord = 11;
constexpr int kAccountBytes = 3;
constexpr int kPasswordBytes = 2;

void EncodeNumberOf(RecordWriter& row) {
  const bool has_account = row.IsSet(kAccount);
  const bool has_password = row.IsSet(kPassword);
  if (has_account && has_password && row.Value(kNumber) > 0) {
    row.MinusOneWord(5, kNumber);
  } else if (has_account || has_password || row.IsSet(kNumber)) {
    row.Byte(5, 254);
    row.Byte(6, 255);
  } else {
    row.Fill(5, 2, 255);
  }
}

void EncodeRow(RecordWriter& row) {
  row.Digits(0, kAccountBytes, kAccount);
  row.Digits(3, kPasswordBytes, kPassword);
  EncodeNumberOf(row);
  row.MinusOne(7, kConfig);
  row.MinusOne(8, kTenan);
  row.PlainWord(9, kTime, kUnsetWord);
}

void DecodeRow(const ImageReader& record, RowText& row) {
  const int seconds = record.Word(9);
  row.Add(record.Digits(0, kAccountBytes));
  row.Add(record.Digits(3, kPasswordBytes));
  row.Add(record.PlusOneWord(5));  // 254, 255 means not set too, because of its high byte
  row.Add(record.PlusOne(7));
  row.Add(record.PlusOne(8));
  row.Add(seconds == kUnsetWord ? std::string(kUnset) : std::to_string(seconds));
}

}  // namespace

}  // namespace account

void EncodeAccount(const IniText& project, ImageWriter& image) {
  using namespace account;
  EncodeRows(project, kTable, image, {kRecord, 0, kRecord}, EncodeRow);
}

void DecodeAccount(const ImageReader& image, IniEdit& project) {
  using namespace account;
  DecodeRows(image, project, kTable, kRecord, DecodeRow);
}

}  // namespace tarvok::sections
