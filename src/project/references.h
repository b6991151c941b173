#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "project/uses.h"
#include "sections/field.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** Where the rows of a section went: old row number to new one, 0 for a row that is gone. A row that is not
 * listed stays where it was. Numbers are those of references: as people count the rows. */
using RowMoves = std::map<int, int>;

/** A reference: the row of some section whose field points at a row. */
struct Reference {
  const Table* table;  // of the row that refers
  int row;             // its number, as its keys count
  int field;           // from 1; in a list of members the place of the member
  int target;          // the row that it points at
};

/** Every reference to rows of the section of `target` in a project, from the field statements; of one row
 * where `row` is above 0. This is what "used by" lists. */
std::vector<Reference> ReferencesTo(const IniText& project, const Table& target, int row = 0);

/**
 * Makes every reference follow the rows of the section of `moved`: all old values are looked up first, so
 * that no reference is renamed twice. A reference to a row that is gone becomes "F"; a member is taken out of
 * its list, and where the list's section counts its members, "Now" is recounted.
 */
void RepairReferences(IniEdit& project, const IniText& before, const Table& moved, const RowMoves& moves);
/** The same for the references of one table. */
void RepairReferencesOf(const Table& table, IniEdit& project, const IniText& before, const Table& moved,
                        const RowMoves& moves);

/** Writes "Now" of a section that counts its members. */
void RecountMembers(IniEdit& project, const Table& table);

/** The list with its n-th field, as reading counts them, set to another text; everything else as it stands. */
std::string WithField(std::string_view list, int n, std::string_view text);
/** The same; a list that ends in front of the field is filled up to it with "F". */
std::string PutField(std::string_view list, int n, std::string_view text);

}  // namespace tarvok::project
