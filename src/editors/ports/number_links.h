#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "editors/uses.h"
#include "project/references.h"
#include "store/ini_edit.h"

namespace tarvok::editors {

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
  /** `project` is one in which all that refers to ports has followed them already; `left` are the number rows
   * of ports that are no more. */
  NumberLinks(const IniEdit& project, const std::vector<LinkedPort>& ports, const std::vector<int>& left);

  /** Row `number` stands for that port. */
  static bool BelongsTo(const IniText& project, int number, int port);

  /** The number row of a port by the port's row, 0 for none. */
  int NumberOf(int port) const;
  /** The row holds another number than before. */
  bool IsTaken(int row) const { return changed_.contains(row); }
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
  /** False for a port whose number needs a row of its own. */
  bool Link(const LinkedPort& port);
  int FindShared(const std::string& number) const;
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

}  // namespace tarvok::editors
