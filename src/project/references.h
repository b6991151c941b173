#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "project/uses.h"
#include "sections/table.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** Where the rows of a section went: old row number to new one, 0 for a removed row. Rows not listed stay
 * where they are. Numbers are those that references hold. */
using RowMoves = std::map<int, int>;

/** A field that refers to a row. */
struct Reference {
  const Table* table;  // of the referring row
  int row;             // its number, as its keys count
  int field;           // from 1; in a list of members the position of the member
  int target;          // the row that it refers to
};

/** All references to rows of the target's section; to one row only if `row` is above 0. "Used by" lists
 * these. */
std::vector<Reference> ReferencesTo(const IniText& project, const Table& target, int row = 0);

/**
 * Updates all references to rows of the section of `moved`. The old values are read from `before`, so that no
 * reference changes twice. A reference to a removed row becomes "F"; a member is taken out of its list, and
 * "Now" is recounted if the list's section counts its members. Returns the references to removed rows.
 */
std::vector<Reference> RepairReferences(IniEdit& project, const IniText& before, const Table& moved,
                                        const RowMoves& moves);
/** The same for the references of one table. */
std::vector<Reference> RepairReferencesOf(const Table& table, IniEdit& project, const IniText& before,
                                          const Table& moved, const RowMoves& moves);

/** Updates "Now" if the table's section counts its members there. */
void RecountMembers(IniEdit& project, const Table& table);

/** The list with its n-th non-empty field replaced; everything else stays as it is. */
std::string WithField(std::string_view list, int n, std::string_view text);
/** The same, but a list that is too short is first padded with "F". */
std::string PutField(std::string_view list, int n, std::string_view text);

}  // namespace tarvok::project
