#include "sections/ports/name.h"

#include <array>
#include <string>

#include "sections/records.h"

namespace tarvok::sections {
namespace name {
namespace {

constexpr int kMostBytes = 15;
constexpr Field kFields[] = {Text("Name", kMostBytes)};
constexpr Mark kMarks[] = {{1, ""}};

}  // namespace

const Table kTable = {.section = "Name",
                      .row_name = "Name",
                      .command = "ext",
                      .rows = {1, kNameRows, 3},
                      .fields = kFields,
                      .marks = kMarks,
                      .now = NowCounts::kRows};

}  // namespace name

void EncodeName(const IniText& project, ImageWriter& image) {
  using namespace name;
  const std::int64_t now = Val(project.Get(kTable.section, kNowKey));
  for (int number = 1; number <= kNameRows && number <= now; ++number) {
    image.Text((number - 1) * kMostBytes, kMostBytes, RowValue(project, kTable, number));
  }
}

void DecodeName(const ImageReader& image, IniEdit& project) {
  using namespace name;
  std::array<std::string, kNameRows> names;
  int count = 0;
  for (int i = 0; i < kNameRows; ++i) {
    std::string& text = names[static_cast<std::size_t>(i)];
    text = Trim(image.Text(i * kMostBytes, kMostBytes));
    count += text.empty() ? 0 : 1;
  }
  StoreRowCounts(project, kTable, count);
  for (int number = 1; number <= kNameRows; ++number) {
    const std::string& text = names[static_cast<std::size_t>(number) - 1];
    StoreRow(project, kTable, number, text, text.empty());
  }
}

}  // namespace tarvok::sections
