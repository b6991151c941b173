#include "sections/routing/tenan.h"

#include <array>
#include <iterator>
#include <string>
#include <utility>

#include "sections/records.h"
#include "store/value_code.h"

namespace tarvok::sections {
namespace tenan {
namespace {

constexpr int kColumnsOfValue = 16;
constexpr Field Columns(std::string_view name, int low) {
  return {.name = name, .kind = FieldKind::kColumns, .low = low, .high = kColumnsOfValue};
}
constexpr Field kLowFields[] = {Columns("Columns 16 to 1", 1)};
constexpr Field kHighFields[] = {Columns("Columns 32 to 17", kColumnsOfValue + 1)};

/** The table whose rows start at `base` + 1. */
constexpr Table HalfOf(std::string_view name, int base, std::span<const Field> fields) {
  return {.section = "Tenan",
          .row_name = name,
          .command = "tenan",
          .rows = {.first = base + 1, .last = base + kTenants, .width = 3, .base = base},
          .fields = fields};
}

constexpr int kMask = 2;
constexpr std::string_view kTooWide = "has more than 16 columns";

/** Writes the 16 bits of matrix row `row`, from 1, at offset `at`. A missing row is written as `missing`. */
void EncodeMask(const IniText& project, const Table& table, int row, int missing, ImageWriter& image,
                int at) {
  const int number = table.rows.first + row - 1;
  const std::string_view columns = RowValue(project, table, number);
  const std::size_t highest = columns.find('1');
  if (highest != std::string_view::npos && columns.size() - highest > kColumnsOfValue) {
    ValueWriter(image, table, KeyOf(table, number), columns).Fail(kTooWide);
    return;
  }
  image.Word(at, columns.empty() ? missing : static_cast<int>(BinToDec(columns)));
}

void DecodeMask(const ImageReader& image, int at, IniEdit& project, const Table& table, int row) {
  const int word = image.RawWord(at);
  std::array<char, kColumnsOfValue> columns = {};
  for (int bit = 0; bit < kColumnsOfValue; ++bit)
    columns[static_cast<std::size_t>(kColumnsOfValue - 1 - bit)] = (word >> bit & 1) != 0 ? '1' : '0';
  project.Set(table.section, KeyOf(table, table.rows.first + row - 1), {columns.data(), columns.size()});
}

constexpr const Table* kLowTables[] = {&kDayTable, &kNightTable};
constexpr const Table* kHighTables[] = {&kDayHighTable, &kNightHighTable};

/** Calls `take(table, row, offset)` for each mask of an image, in its order. The short layout has one mask in
 * a row, the long layout two. */
template <typename Take>
void ForEachMask(int rows, Take take) {
  int at = 0;
  for (std::size_t half = 0; half < std::size(kLowTables); ++half) {
    for (int row = 1; row <= rows; ++row) {
      take(*kLowTables[half], row, std::exchange(at, at + kMask));
      if (rows > kTenantsShort) take(*kHighTables[half], row, std::exchange(at, at + kMask));
    }
  }
}

void EncodeMasks(const IniText& project, ImageWriter& image, int rows, int missing) {
  ForEachMask(rows, [&](const Table& table, int row, int at) {
    EncodeMask(project, table, row, missing, image, at);
  });
}

void DecodeMasks(const ImageReader& image, IniEdit& project, int rows) {
  project.Set(kDayTable.section, kMaxKey, std::to_string(rows));
  ForEachMask(rows, [&](const Table& table, int row, int at) { DecodeMask(image, at, project, table, row); });
}

}  // namespace

const Table kDayTable = HalfOf("Tenan Day", 100, kLowFields);
const Table kNightTable = HalfOf("Tenan Night", 200, kLowFields);
const Table kDayHighTable = HalfOf("Tenan Day", 300, kHighFields);
const Table kNightHighTable = HalfOf("Tenan Night", 400, kHighFields);

}  // namespace tenan

void EncodeTenan16(const IniText& project, ImageWriter& image) {
  tenan::EncodeMasks(project, image, kTenantsShort, kUnsetWord);
}

void EncodeTenan32(const IniText& project, ImageWriter& image) {
  tenan::EncodeMasks(project, image, kTenants, 0);
}

void DecodeTenan16(const ImageReader& image, IniEdit& project) {
  tenan::DecodeMasks(image, project, kTenantsShort);
}

void DecodeTenan32(const ImageReader& image, IniEdit& project) {
  tenan::DecodeMasks(image, project, kTenants);
}

}  // namespace tarvok::sections
