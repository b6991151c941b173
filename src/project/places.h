#pragma once

#include <optional>
#include <string_view>

#include "project/commands.h"
#include "project/place.h"
#include "project/uses.h"
#include "sections/field.h"

namespace tarvok::project {

/** The command whose form edits a field of a table, from 1, or its rows as such (0). This is the one list that
 * findings, references and searches jump by. nullptr for a section that no form edits. */
const Command* CommandOf(const Table& table, int field = 0);

/** The statement and the row number of a key; nothing for a key that no statement knows. */
struct StatedRow {
  const Table* table;
  int row;
};
std::optional<StatedRow> FindRow(std::string_view section, std::string_view key);

/** The place of a field told by its name, as a finding tells it; a name that is no field's is the whole row.
 * The key need not be one that a statement knows. */
Place PlaceOf(std::string_view section, std::string_view key, std::string_view field_name);

/** The command whose form shows the place; nullptr if none does. */
const Command* CommandOf(const Place& place);

}  // namespace tarvok::project
