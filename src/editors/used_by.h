#pragma once

#include <vector>

#include "editors/field_table_editor.h"
#include "editors/uses.h"
#include "project/references.h"
#include "project/search.h"
#include "store/ini_text.h"

namespace tarvok::editors {

/**
 * All references to row `number` (as in its key) of a table, in the order of the project's sections. Each has
 * the place to jump to, the referring row's label, the name of the referring field, and its value as shown to
 * the user.
 */
std::vector<Found> UsedBy(const IniText& project, const Table& table, int number);

/** References to rows of a table, for the question before a save clears them. */
std::vector<ClearedReference> InWords(const IniText& project, const Table& table,
                                      const std::vector<Reference>& references);

/** The same for a row of an open form's grid, from 1. A row that is not in the project yet has no
 * references. */
std::vector<Found> UsedBy(const IniText& project, FieldTableEditor& form, int grid_row);

}  // namespace tarvok::editors
