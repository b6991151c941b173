#include "sections/ports/vm_call_back.h"

#include <string>

#include "sections/rows.h"

namespace tarvok::sections {
namespace vm_call_back {
namespace {

constexpr int kMostCharacters = 4;
constexpr Field kFields[] = {
    Digits("Check digit", kMostCharacters),
    Digits("Insert digit", kMostCharacters),
};

}  // namespace

const Table kTable = {.section = "VMCallBack",
                      .row_name = "VM Call Back",
                      .command = "vmcallback",
                      .rows = {1, kVmCallBackRows, 2},
                      .fields = kFields};

namespace {

constexpr int kRecord = 2 * kMostCharacters;
constexpr std::string_view kNoCharacters("\0\xFF", 2);

}  // namespace

}  // namespace vm_call_back

void EncodeVMCallBack(const IniText& project, ImageWriter& image) {
  using namespace vm_call_back;
  EncodeRows(project, kTable, image, {kRecord}, [](RecordWriter& row) {
    row.Text(0, kMostCharacters, row.SetText(kCheck));
    row.Text(kMostCharacters, kMostCharacters, row.SetText(kInsert));
  });
}

void DecodeVMCallBack(const ImageReader& image, IniEdit& project) {
  using namespace vm_call_back;
  DecodeRows(image, project, kTable, kRecord, [](const ImageReader& record, RowText& row) {
    for (const int at : {0, kMostCharacters})
      row.AddCharacters(record.Bytes(at, kMostCharacters), kNoCharacters);
  });
}

}  // namespace tarvok::sections
