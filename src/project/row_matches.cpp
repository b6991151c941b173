#include "project/row_matches.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "sections/row_fields.h"
#include "sections/rows.h"

namespace tarvok::project {
namespace {

using Rows = std::vector<int>;

/** The rows that have all their identifying fields, by those fields. */
std::map<std::string, Rows> RowsByMarks(const IniText& project, const Table& table) {
  std::map<std::string, Rows> rows;
  for (int number = table.rows.first; number <= table.rows.last; ++number) {
    const RowFields row(table, RowValue(project, table, number));
    std::string marks;
    bool all_set = true;
    for (const Mark& mark : table.marks) {
      all_set = all_set && row.IsSet(mark.field);
      if (!all_set) break;
      marks.append(Canonical(*row.StatementOf(mark.field), row[mark.field])).append("|");
    }
    if (all_set) rows[marks].push_back(number);
  }
  return rows;
}

/** Pairs the rows that are equal in every field and takes them out of both lists. */
template <typename Pair>
void PairEqualRows(Rows& of_first, Rows& of_second, const IniText& first, const IniText& second,
                   const Table& table, const Pair& pair) {
  std::erase_if(of_first, [&](int row) {
    const auto twin = std::find_if(of_second.begin(), of_second.end(), [&](int other) {
      return RowValue(first, table, row) == RowValue(second, table, other);
    });
    if (twin == of_second.end()) return false;
    pair(row, *twin);
    of_second.erase(twin);
    return true;
  });
}

}  // namespace

RowMatches::RowMatches(const IniText& first, const IniText& second, const Table& table) {
  if (table.marks.empty() || table.single()) return;
  std::map<std::string, Rows> of_first = RowsByMarks(first, table);
  std::map<std::string, Rows> of_second = RowsByMarks(second, table);
  const auto count = static_cast<std::size_t>(table.rows.last) + 1;
  second_of_.resize(count);
  first_of_.resize(count);
  identified_.resize(count);
  bool moved = false;
  const auto pair = [&](int row, int other) {
    second_of_[static_cast<std::size_t>(row)] = other;
    first_of_[static_cast<std::size_t>(other)] = row;
    identified_[static_cast<std::size_t>(row)] = true;
    moved = moved || row != other;
  };
  for (auto& [marks, rows] : of_first) {
    Rows& others = of_second[marks];
    if (rows.size() != 1 || others.size() != 1) PairEqualRows(rows, others, first, second, table, pair);
    if (rows.size() != others.size()) continue;
    for (std::size_t i = 0; i < rows.size(); ++i) pair(rows[i], others[i]);
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
  bool goes_on = false;  // no unmoved row lies in between
  for (int row = 1; row < static_cast<int>(second_of_.size()); ++row) {
    if (!identified_[static_cast<std::size_t>(row)]) continue;
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

}  // namespace tarvok::project
