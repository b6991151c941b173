#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "sections/references.h"
#include "store/ini_edit.h"

namespace tarvok {

/** A port as the port editor leaves it. */
struct LinkedPort {
  int row = 0;          // its row from now on
  int named = 0;        // the number row that it names in the project, 0 for none
  bool usable = false;  // it is stored, so that a number can stand for it
  std::string number;   // as people gave it, "" for none
};

/**
 * Which row of `Assign` belongs to which port, once ports have got, lost or changed their numbers. A row that
 * belongs to a port stays with it and takes the number that the port has now, so that all that refers to the
 * row still reaches the same telephone.
 */
class NumberLinks {
 public:
  /** `project` is one in which all that refers to ports has followed them already. */
  NumberLinks(const IniEdit& project, const std::vector<LinkedPort>& ports);

  /** The number row of a port by the port's row, 0 for none. */
  int NumberOf(int port) const;
  /** The numbers that are no more. */
  const RowMoves& gone() const { return gone_; }
  /** Every number has found a row. */
  bool all_fit() const { return all_fit_; }
  /** Writes the number rows that have changed. */
  void Write(IniEdit& project) const;

 private:
  std::string_view Field(int row, int field) const;
  bool IsForPorts(int row) const;
  void FindOwners(const std::vector<LinkedPort>& ports);
  void GiveUp(const LinkedPort& port);
  void Link(const LinkedPort& port);
  int FindOtherKind(const std::string& number) const;
  int FindUnowned(const LinkedPort& port) const;
  void Take(int row, const LinkedPort& port);
  void TakeFree(const LinkedPort& port);

  std::vector<std::string> rows_;  // by row, from 1
  std::map<int, int> row_of_;      // by port: the row that belongs to it
  std::set<int> owned_;            // the rows in it
  std::map<int, int> number_of_;   // by port: what it names from now on
  std::set<int> changed_;
  RowMoves gone_;
  bool all_fit_ = true;
};

}  // namespace tarvok
