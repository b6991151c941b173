#pragma once

#include <vector>

#include "project/uses.h"
#include "sections/field.h"
#include "store/ini_text.h"

namespace tarvok::project {

/**
 * Which row of a second project a row of a first one is: a row that went elsewhere with the marks by which people
 * tell it is the same row. Of rows with the same marks those that are in all equal go together, and the others in their
 * order if there are as many in both. Any other row, such as one whose marks changed or of a table without marks, is the one
 * of the same number, if that is no other one.
 */
class RowMatches {
 public:
  RowMatches(const IniText& first, const IniText& second, const Table& table);

  /** The number of the row in the other project; 0 where it is gone, or new. */
  int SecondOf(int first) const { return At(second_of_, first); }
  int FirstOf(int second) const { return At(first_of_, second); }
  /** Some row has another number. */
  bool moved() const { return !second_of_.empty(); }

  /** Rows that went the same way, one behind the other among those in use. */
  struct Run {
    int first;  // their numbers in the first project
    int last;
    int rows;
    int by;  // negative: up
  };
  std::vector<Run> Runs() const;

 private:
  static int At(const std::vector<int>& rows, int row) {
    return row > 0 && row < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(row)] : row;
  }

  // By row, from 1; empty where all rows stand where they stood.
  std::vector<int> second_of_;
  std::vector<int> first_of_;
  std::vector<bool> told_;  // the row's marks told where it is
};

}  // namespace tarvok::project
