#include "sections/system/mini_bar.h"

#include <string>

#include "sections/image_reader.h"
#include "sections/records.h"

namespace tarvok::sections {
namespace mini_bar {
namespace {

constexpr auto kFields = FieldsOf({{kName, Text("Name", 16)}, {kPrice, Number("Price", 0, 9999)}});

/** Rows without data: as the editor writes them, with a trailing pipe, and as received from an exchange. */
constexpr std::string_view kEmptyRows[] = {"F|F|", "F|F", "F|0"};
constexpr Mark kMarks[] = {{kName, ""}};

constexpr int kNameBytes = 20;
constexpr int kUnsetPrice = 65535;

}  // namespace

const Table kTable = {.section = "MiniBar",
                      .row_name = "Item",
                      .command = "minibar",
                      .rows = {1, kMiniBarRows, 3},
                      .fields = kFields,
                      .empty_rows = kEmptyRows,
                      .marks = kMarks};

}  // namespace mini_bar

void EncodeMiniBarRecord(const IniText& project, int number, ImageWriter& image) {
  using namespace mini_bar;
  const std::string key = KeyOf(kTable, number);
  const std::string_view value = RowValue(project, kTable, number);
  RecordWriter item(image, 0, kTable, key, value);
  if (item.IsSet(kName)) image.Text(0, kNameBytes, item.Get(kName));
  item.PlainWord(kNameBytes, kPrice, 0);
}

void DecodeMiniBarRecord(std::string_view name, int price, int number, IniEdit& project) {
  using namespace mini_bar;
  RowText row;
  // Each of these would end the field or the row, or be trimmed from its start.
  row.AddCharacters({reinterpret_cast<const std::uint8_t*>(name.data()), name.size()}, "|\t\r\n");
  row.Add(price >= kUnsetPrice ? std::string(kUnset) : std::to_string(price));
  StoreRow(project, kTable, number, row.str());
}

}  // namespace tarvok::sections
