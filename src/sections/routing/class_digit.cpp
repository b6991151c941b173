#include "sections/routing/class_digit.h"

#include <algorithm>
#include <string>

#include "sections/records.h"
#include "store/digit_code.h"
#include "store/value_code.h"

namespace tarvok::sections {
namespace class_digit {
namespace {

/** A number has no limit of its own; only the size of a project value limits it. */
constexpr int kMostDigits = static_cast<int>(kMaxIniValue);
constexpr Field kBanFields[] = {Digits("Ban Number", kMostDigits, "*#")};
constexpr int kMostNumbers = 20;
constexpr int kPool = 1024;
constexpr Members kMembers = {.most = kMostNumbers, .pool = kPool, .packed = true, .every_piece = true};
constexpr Field kAllowFields[] = {Digits("Allow Number", kMostDigits, "*#")};

constexpr int kWord = 2;
constexpr int kPoolAt = kClasses * kWord;

/** Packs one number. "F" is a digit code here like the other letters. ValueWriter would take it as unset,
 * so it is used only to report the error. */
void EncodeNumber(ImageWriter& image, const Table& table, std::string_view key, std::string_view digits,
                  int at, int bytes) {
  if (image.Digits(at, bytes, digits, DialSymbols::kDigitsStarHash)) return;
  ValueWriter(image, table, key, digits).Digits(at, bytes, digits, DialSymbols::kDigitsStarHash);
}

void EncodeLists(const IniText& project, const Table& table, ImageWriter& image) {
  int used = 0;
  for (int number = 1; number <= kClasses; ++number) {
    const std::string key = KeyOf(table, number);
    ForEachPiece(RowValue(project, table, number), [&](std::string_view digits) {
      const int bytes = static_cast<int>(digits.size() + 1) / 2;
      if (used + bytes + 1 > kPool) {
        ValueWriter(image, table, key, digits).Fail(PoolFull(kMembers));
        return;
      }
      EncodeNumber(image, table, key, digits, kPoolAt + used, bytes);
      used += bytes + 1;
    });
    image.Word((number - 1) * kWord, used);
  }
}

/** Decodes the list of a class: the pool from `next` up to `end`. Padding is cut off while the digit 0 is
 * still the code A, so the zeros of a number survive. A number without its byte 0 ends with the class. */
void DecodeList(const ImageReader& image, int& next, int end, std::string& codes) {
  codes.clear();
  for (; next < end; ++next) {
    const int byte = image.Byte(kPoolAt + next);
    if (byte != 0) {
      codes += DecToHex(static_cast<std::uint64_t>(byte));
    } else if (!codes.empty()) {
      codes.erase(std::min(codes.find('0'), codes.size()));
      if (!codes.ends_with('|')) codes += '|';
    }
  }
  codes.erase(std::min(codes.find('0'), codes.size()));
  if (codes.ends_with('|')) codes.pop_back();
  for (char& code : codes) code = SymbolOf(code, DialSymbols::kDigitsStarHash);
}

void DecodeLists(const ImageReader& image, IniEdit& project, const Table& table) {
  StoreMax(project, table);
  int next = 0;
  std::string list;
  for (int number = 1; number <= kClasses; ++number) {
    const int end = image.Word((number - 1) * kWord);
    DecodeList(image, next, end == kUnsetWord ? 0 : std::min(end, kPool), list);
    project.Set(table.section, KeyOf(table, number), list);
  }
}

}  // namespace

const Table kBanTable = {.section = "COR",
                         .row_name = "COR",
                         .command = "digitcor",
                         .rows = {1, kClasses, 2},
                         .fields = kBanFields,
                         .repeats = true,
                         .members = kMembers,
                         .label = "COR"};
const Table kAllowTable = {.section = "COR",
                           .row_name = "COR",
                           .command = "digitcor",
                           .rows = {1, kClasses, 2, "A"},
                           .fields = kAllowFields,
                           .repeats = true,
                           .members = kMembers,
                           .label = "COR"};

}  // namespace class_digit

void EncodeClassBan(const IniText& project, ImageWriter& image) {
  class_digit::EncodeLists(project, class_digit::kBanTable, image);
}

void EncodeClassAllow(const IniText& project, ImageWriter& image) {
  class_digit::EncodeLists(project, class_digit::kAllowTable, image);
}

void DecodeClassBan(const ImageReader& image, IniEdit& project) {
  class_digit::DecodeLists(image, project, class_digit::kBanTable);
}

void DecodeClassAllow(const ImageReader& image, IniEdit& project) {
  class_digit::DecodeLists(image, project, class_digit::kAllowTable);
}

}  // namespace tarvok::sections
