#include "sections/routing/route_list.h"

#include <algorithm>
#include <string>

#include "sections/records.h"
#include "sections/routing/route.h"

namespace tarvok::sections {
namespace route_list {
namespace {

/** The editor has 50 lists of 40 routes, although only the first 200 routes are sent. */
constexpr Field kFields[] = {Number("End", 0, 2001)};

constexpr int kValue = 2;
constexpr int kLargestEnd = kUnsetWord + 1;

void EncodeEnd(RecordWriter& list) {
  const std::int64_t end = list.Value(kEnd);
  if (end > kLargestEnd) {
    list.TooLarge(kEnd);
    return;
  }
  list.Word(0, end < 1 ? 0 : static_cast<int>(end) - 1);
}

}  // namespace

const Table kTable = {.section = "Route_List",
                      .row_name = "List",
                      .command = "route",
                      .rows = {1, kRouteLists, 2},
                      .fields = kFields,
                      .label = "List",
                      .ends_of = &route::kTable};

}  // namespace route_list

RouteRange RoutesOfList(const IniText& project, int list) {
  using namespace route_list;
  const auto end_of = [&](int number) {
    const std::int64_t end = number < 1 ? 1 : Val(RowValue(project, kTable, number));
    return static_cast<int>(std::clamp<std::int64_t>(end, 1, route::kTable.rows.kept + 1));
  };
  return {end_of(list - 1), end_of(list) - 1};
}

void EncodeRouteList(const IniText& project, ImageWriter& image) {
  using namespace route_list;
  EncodeRows(project, kTable, image, {kValue, 0, 0}, EncodeEnd);
}

void DecodeRouteList(const ImageReader& image, IniEdit& project) {
  using namespace route_list;
  StoreMax(project, kTable);
  for (int number = 1; number <= kRouteLists; ++number) {
    const int end = image.RawWord((number - 1) * kValue);
    project.Set(kTable.section, KeyOf(kTable, number), std::to_string(end == kUnsetWord ? 0 : end + 1));
  }
}

}  // namespace tarvok::sections
