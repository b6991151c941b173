#include "sections/routing/tenan.h"

#include <array>

#include "sections/rows.h"
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

void StoreTenants(IniEdit& project, int count) {
  project.Set(kDayTable.section, kMaxKey, std::to_string(count));
}

/** Offset of row `row` in the day half (0) or night half (1). A half has `rows` rows of `masks` times 16
 * bits. */
int PlaceOf(int half, int row, int rows, int masks) {
  return (half * rows + row - 1) * masks * kMask;
}

constexpr const Table* kLowTables[] = {&kDayTable, &kNightTable};
constexpr const Table* kHighTables[] = {&kDayHighTable, &kNightHighTable};

}  // namespace

const Table kDayTable = HalfOf("Tenan Day", 100, kLowFields);
const Table kNightTable = HalfOf("Tenan Night", 200, kLowFields);
const Table kDayHighTable = HalfOf("Tenan Day", 300, kHighFields);
const Table kNightHighTable = HalfOf("Tenan Night", 400, kHighFields);

}  // namespace tenan

void EncodeTenan16(const IniText& project, ImageWriter& image) {
  using namespace tenan;
  for (int half = 0; half < 2; ++half) {
    for (int row = 1; row <= kTenantsShort; ++row) {
      EncodeMask(project, *kLowTables[half], row, kUnsetWord, image, PlaceOf(half, row, kTenantsShort, 1));
    }
  }
}

void EncodeTenan32(const IniText& project, ImageWriter& image) {
  using namespace tenan;
  for (int half = 0; half < 2; ++half) {
    for (int row = 1; row <= kTenants; ++row) {
      const int at = PlaceOf(half, row, kTenants, 2);
      EncodeMask(project, *kLowTables[half], row, 0, image, at);
      EncodeMask(project, *kHighTables[half], row, 0, image, at + kMask);
    }
  }
}

void DecodeTenan16(const ImageReader& image, IniEdit& project) {
  using namespace tenan;
  StoreTenants(project, kTenantsShort);
  for (int half = 0; half < 2; ++half) {
    for (int row = 1; row <= kTenantsShort; ++row) {
      DecodeMask(image, PlaceOf(half, row, kTenantsShort, 1), project, *kLowTables[half], row);
    }
  }
}

void DecodeTenan32(const ImageReader& image, IniEdit& project) {
  using namespace tenan;
  StoreTenants(project, kTenants);
  for (int half = 0; half < 2; ++half) {
    for (int row = 1; row <= kTenants; ++row) {
      const int at = PlaceOf(half, row, kTenants, 2);
      DecodeMask(image, at, project, *kLowTables[half], row);
      DecodeMask(image, at + kMask, project, *kHighTables[half], row);
    }
  }
}

}  // namespace tarvok::sections
