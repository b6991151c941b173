#pragma once

#include <vector>

#include "project/uses.h"
#include "sections/table.h"
#include "store/ini_text.h"

namespace tarvok::project {

/**
 * Matches the rows of one table in two projects: by identifying fields, then equality, then number.
 *
 * Rows with the same identifying fields are the same row, wherever they are. If several rows share them,
 * equal rows are paired first, then the others in their order, provided that both projects have as many. Any
 * other row, such as one whose identifying fields changed, matches the row with its number unless that row is
 * already matched.
 */
class RowMatches {
 public:
  RowMatches(const IniText& first, const IniText& second, const Table& table);

  /** The number of the row in the other project; 0 if it does not exist there. */
  int SecondOf(int first) const { return At(second_of_, first); }
  int FirstOf(int second) const { return At(first_of_, second); }
  /** True if any row has a different number in the second project. */
  bool moved() const { return !second_of_.empty(); }

  /** Consecutive rows in use that moved by the same distance. */
  struct Run {
    int first;  // number in the first project
    int last;
    int rows;
    int by;  // negative: up
  };
  std::vector<Run> Runs() const;

 private:
  static int At(const std::vector<int>& rows, int row) {
    return row > 0 && row < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(row)] : row;
  }

  // By row, from 1; empty if no row moved.
  std::vector<int> second_of_;
  std::vector<int> first_of_;
  std::vector<bool> identified_;  // the row was found by its identifying fields
};

}  // namespace tarvok::project
