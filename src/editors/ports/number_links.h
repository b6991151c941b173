#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "editors/uses.h"
#include "project/references.h"
#include "store/ini_edit.h"

namespace tarvok::editors {

/** A port as the port editor saves it. */
struct LinkedPort {
  int row = 0;          // its new row
  int named = 0;        // the number row that it names in the project; 0 if none
  bool usable = false;  // it is stored, so it can have a number
  std::string number;   // as entered; "" if none
};

/**
 * Finds out which row of `Assign` belongs to which port after ports have got, lost or changed numbers. A row
 * stays with its port and takes the port's new number, so that all references to the row still reach the same
 * telephone.
 */
class NumberLinks {
 public:
  /** In `project` all references to ports must already be updated; `left` are the number rows of removed
   * ports. */
  NumberLinks(const IniEdit& project, const std::vector<LinkedPort>& ports, const std::vector<int>& left);

  /** True if number row `number` belongs to that port. */
  static bool BelongsTo(const IniText& project, int number, int port);

  /** The number row of a port, by the port's row; 0 if none. */
  int NumberOf(int port) const;
  /** True if the row now holds a different number. */
  bool IsTaken(int row) const { return changed_.contains(row); }
  /** The removed number rows. */
  const RowMoves& gone() const { return gone_; }
  /** True if there was a row for every number. */
  bool all_fit() const { return all_fit_; }
  /** Writes the changed number rows. */
  void Write(IniEdit& project) const;

 private:
  std::string_view Field(int row, int field) const;
  bool IsForPorts(int row) const;
  void FindOwners(const std::vector<LinkedPort>& ports);
  void GiveUp(const LinkedPort& port);
  /** False if the port's number needs a new row. */
  bool Link(const LinkedPort& port);
  int FindShared(const std::string& number) const;
  int FindUnowned(const LinkedPort& port) const;
  void Take(int row, const LinkedPort& port);
  void TakeFree(const LinkedPort& port);

  std::vector<std::string> rows_;  // by row, from 1
  std::map<int, int> row_of_;      // by port: its own row
  std::set<int> owned_;            // the rows in row_of_
  std::map<int, int> number_of_;   // by port: the number row that it will name
  std::set<int> changed_;
  RowMoves gone_;
  bool all_fit_ = true;
};

}  // namespace tarvok::editors
