#include "sections/ports/number_tables.h"

#include <string>

#include "sections/records.h"

namespace tarvok::sections {
namespace {

constexpr int kLinkTrunkBytes = 8;
constexpr int kDialPhoneBytes = 4;
constexpr Field kLinkTrunkFields[] = {Digits("Number", kLinkTrunkBytes * 2)};
constexpr Field kDialPhoneFields[] = {Digits("Number", kDialPhoneBytes * 2)};

void EncodeNumbers(const IniText& project, ImageWriter& image, const Table& table, int record) {
  for (int number = 1; number <= table.rows.last; ++number) {
    PutNumber(image, (number - 1) * record, record, table, KeyOf(table, number),
              RowValue(project, table, number));
  }
}

void DecodeNumbers(const ImageReader& image, IniEdit& project, const Table& table, int record) {
  std::string digits;
  for (int number = 1; number <= table.rows.last; ++number) {
    digits.clear();
    AppendDigits(image.Bytes((number - 1) * record, record), DialSymbols::kDigits, SkippedBytes::kZeroAnd255,
                 digits);
    project.Set(table.section, KeyOf(table, number), digits);
  }
}

}  // namespace

const Table link_trunk::kTable = {.section = "LinkTrunk",
                                  .row_name = "Link Trunk",
                                  .command = "linktrunk",
                                  .rows = {1, kLinkTrunks, 2},
                                  .fields = kLinkTrunkFields};
const Table dial_phone::kTable = {.section = "DialPhone",
                                  .row_name = "Key Dial Phone",
                                  .command = "dialphone",
                                  .rows = {1, kDialPhones, 2},
                                  .fields = kDialPhoneFields};

void EncodeLinkTrunk(const IniText& project, ImageWriter& image) {
  EncodeNumbers(project, image, link_trunk::kTable, kLinkTrunkBytes);
}

void EncodeDialPhone(const IniText& project, ImageWriter& image) {
  EncodeNumbers(project, image, dial_phone::kTable, kDialPhoneBytes);
}

void DecodeLinkTrunk(const ImageReader& image, IniEdit& project) {
  DecodeNumbers(image, project, link_trunk::kTable, kLinkTrunkBytes);
}

void DecodeDialPhone(const ImageReader& image, IniEdit& project) {
  DecodeNumbers(image, project, dial_phone::kTable, kDialPhoneBytes);
}

}  // namespace tarvok::sections
