#include "editors/routing/offered_rows.h"

#include <algorithm>
#include <utility>

#include "editors/field_columns.h"
#include "sections/ports/assign.h"
#include "sections/routing/e1_map.h"
#include "sections/routing/group_out.h"
#include "sections/routing/route_list.h"
#include "sections/row_fields.h"
#include "sections/rows.h"

namespace tarvok::editors {
namespace {

/** The names of the rows for which `offered` is true, up to the number under `count_key`. */
template <typename Offered>
std::vector<std::string> NamesUpTo(const IniText& project, const Table& table, std::string_view count_key,
                                   const RowNames& names, Offered offered) {
  std::vector<std::string> list;
  const std::int64_t last =
      std::min<std::int64_t>(Val(project.Get(table.section, count_key)), table.rows.last);
  for (int number = table.rows.first; number <= last; ++number) {
    std::string name = names.NameOf(std::to_string(number));
    if (!name.empty() && offered(number)) list.push_back(std::move(name));
  }
  return list;
}

}  // namespace

std::vector<std::string> OfferedLists(const IniText& project) {
  std::int64_t highest = 0;
  return NamesUpTo(project, route_list::kTable, kMaxKey, LabelledRows(route_list::kTable), [&](int list) {
    const std::int64_t end = Val(RowValue(project, route_list::kTable, list));
    return end > std::exchange(highest, std::max(highest, end));
  });
}

std::vector<std::string> OfferedLinks(const IniText& project) {
  std::vector<std::string> links;
  for (int link = 1; link <= kE1Links; ++link) {
    const RowFields row(e1_map::kTable, RowValue(project, e1_map::kTable, link));
    if (row.IsSet(e1_map::kStart) && row.IsSet(e1_map::kEnd)) links.push_back(std::to_string(link));
  }
  return links;
}

std::vector<std::string> OfferedGroups(const IniText& project) {
  return NamesUpTo(project, group_out::kTable, kMaxKey, LabelledRows(group_out::kTable),
                   [&](int group) { return !RowValue(project, group_out::kTable, group).empty(); });
}

std::vector<std::string> OfferedNumbers(const IniText& project) {
  return NamesUpTo(project, assign::kTable, kNowKey, AssignNumbers(project), [](int) { return true; });
}

}  // namespace tarvok::editors
