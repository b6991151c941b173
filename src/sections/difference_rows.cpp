#include "sections/difference_rows.h"

#include <map>
#include <string>

#include "sections/row_fields.h"
#include "sections/rows.h"

namespace tarvok {
namespace {

/** By its marks each row that alone has them; 0 for marks that several have. */
std::map<std::string, int> RowsByMarks(const IniText& project, const Table& table) {
  std::map<std::string, int> rows;
  for (int number = table.rows.first; number <= table.rows.last; ++number) {
    const RowFields row(table, RowValue(project, table, number));
    std::string marks;
    bool all_set = true;
    for (const Mark& mark : table.marks) {
      all_set = all_set && row.IsSet(mark.field);
      if (!all_set) break;
      marks.append(Canonical(*row.StatementOf(mark.field), row[mark.field])).append("|");
    }
    if (!all_set) continue;
    const auto [found, is_new] = rows.try_emplace(marks, number);
    if (!is_new) found->second = 0;
  }
  return rows;
}

}  // namespace

RowMatches::RowMatches(const IniText& first, const IniText& second, const Table& table) {
  if (table.marks.empty() || table.single()) return;
  const std::map<std::string, int> of_first = RowsByMarks(first, table);
  const std::map<std::string, int> of_second = RowsByMarks(second, table);
  const auto count = static_cast<std::size_t>(table.rows.last) + 1;
  second_of_.resize(count);
  first_of_.resize(count);
  told_.resize(count);
  bool moved = false;
  for (const auto& [marks, row] : of_first) {
    const auto found = of_second.find(marks);
    if (row == 0 || found == of_second.end() || found->second == 0) continue;
    second_of_[static_cast<std::size_t>(row)] = found->second;
    first_of_[static_cast<std::size_t>(found->second)] = row;
    told_[static_cast<std::size_t>(row)] = true;
    moved = moved || row != found->second;
  }
  if (!moved) {
    second_of_.clear();
    first_of_.clear();
    return;
  }
  for (std::size_t row = 1; row < count; ++row) {
    if (second_of_[row] == 0 && first_of_[row] == 0) second_of_[row] = first_of_[row] = static_cast<int>(row);
  }
}

std::vector<RowMatches::Run> RowMatches::Runs() const {
  std::vector<Run> runs;
  bool goes_on = false;  // no row that stays lies in between
  for (int row = 1; row < static_cast<int>(second_of_.size()); ++row) {
    if (!told_[static_cast<std::size_t>(row)]) continue;
    const int by = SecondOf(row) - row;
    if (by != 0 && goes_on && runs.back().by == by) {
      runs.back().last = row;
      ++runs.back().rows;
    } else if (by != 0) {
      runs.push_back({row, row, 1, by});
    }
    goes_on = by != 0;
  }
  return runs;
}

}  // namespace tarvok
