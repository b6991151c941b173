#include "sections/ports/vm_call_back.h"

#include "sections/record_layout.h"

namespace tarvok::sections {
namespace vm_call_back {
namespace {

constexpr int kMostCharacters = 4;
constexpr auto kFields = FieldsOf(
    {{kCheck, Digits("Check digit", kMostCharacters)}, {kInsert, Digits("Insert digit", kMostCharacters)}});

constexpr std::string_view kNoCharacters("\0\xFF", 2);

void ReadDigits(const ImageReader& record, int at, RowText& row) {
  row.AddCharacters(record.Bytes(at, kMostCharacters), kNoCharacters);
}

constexpr Rule kDigits = kCharacters<kMostCharacters>.ReadBy(ReadDigits);
constexpr RecordLayout kRecord({{0, kCheck, kDigits}, {kMostCharacters, kInsert, kDigits}});

}  // namespace

const Table kTable = {.section = "VMCallBack",
                      .row_name = "VM Call Back",
                      .command = "vmcallback",
                      .rows = {1, kVmCallBackRows, 2},
                      .fields = kFields,
                      .record = kRecord.items()};

}  // namespace vm_call_back

void EncodeVMCallBack(const IniText& project, ImageWriter& image) {
  using namespace vm_call_back;
  EncodeRows(project, kTable, image, {kRecord.size()}, kRecord);
}

void DecodeVMCallBack(const ImageReader& image, IniEdit& project) {
  using namespace vm_call_back;
  DecodeRows(image, project, kTable, kRecord.size(), kRecord);
}

}  // namespace tarvok::sections
