#include "sections/ports/vm_call_back.h"

#include <string>

#include "sections/rows.h"

namespace tarvok {
namespace vm_call_back {
namespace {

constexpr int kMostCharacters = 4;
constexpr tarvok::Field kFields[] = {
    Digits("Check digit", kMostCharacters),
    Digits("Insert digit", kMostCharacters),
};

}  // namespace

const Table kTable = {
    .section = "VMCallBack", .row_name = "VM Call Back", .rows = {1, kVmCallBackRows, 2}, .fields = kFields};

}  // namespace vm_call_back

namespace {

using namespace vm_call_back;

constexpr int kRecord = 2 * kMostCharacters;

int PlaceOf(int number, int field) {
  return (number - 1) * kRecord + (field - 1) * kMostCharacters;
}

std::string CharactersAt(const ImageReader& image, int at) {
  std::string text;
  for (const std::uint8_t byte : image.Bytes(at, kMostCharacters)) {
    if (byte != 0 && byte != 255) text += static_cast<char>(byte);
  }
  text = Trim(text);
  return text.empty() ? std::string(kUnset) : text;
}

}  // namespace

void EncodeVMCallBack(const IniText& project, ImageWriter& image) {
  for (int number = 1; number <= kVmCallBackRows; ++number) {
    const std::string_view row = RowValue(project, kTable, number);
    for (const int field : {kCheck, kInsert}) {
      const std::string_view text = GetField(row, field);
      if (text != kUnset) image.Text(PlaceOf(number, field), kMostCharacters, text);
    }
  }
}

void DecodeVMCallBack(const ImageReader& image, IniEdit& project) {
  for (int number = 1; number <= kVmCallBackRows; ++number) {
    RowText row;
    for (const int field : {kCheck, kInsert}) row.Add(CharactersAt(image, PlaceOf(number, field)));
    project.Set(kTable.section, KeyOf(kTable, number), row.str());
  }
}

}  // namespace tarvok
