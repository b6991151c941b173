#pragma once

#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"
#include "project/search.h"
#include "store/ini_text.h"

namespace tarvok::editors {

/**
 * What refers to a row of a table, `number` as its keys count, in the order of the project's sections: each
 * with its place to jump to, the row as people know it, the name of the field that refers, and as its value
 * what people see there.
 */
std::vector<Found> UsedBy(const IniText& project, const Table& table, int number);

/** The same for a row of an open form's grid, from 1; a row that the project does not have yet is not used. */
std::vector<Found> UsedBy(const IniText& project, FieldTableEditor& form, int grid_row);

}  // namespace tarvok::editors
