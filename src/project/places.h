#pragma once

#include <optional>
#include <string_view>

#include "project/place.h"
#include "project/uses.h"
#include "sections/table.h"

namespace tarvok::project {

/** The key of the command whose form edits a field of a table, from 1, or whole rows (0). Findings,
 * references and searches all use this to jump. "" for a section that no form edits. */
std::string_view CommandOf(const Table& table, int field = 0);

/** The statement and the row number of a key; FindRow returns nullopt for an unknown key. */
struct StatedRow {
  const Table* table;
  int row;
};
std::optional<StatedRow> FindRow(std::string_view section, std::string_view key);

/** The place of a field by its name, as in a Finding. An unknown name means the whole row, and an unknown key
 * is allowed. */
Place PlaceOf(std::string_view section, std::string_view key, std::string_view field_name);

/** The key of the command whose form shows the place; "" if none does. */
std::string_view CommandOf(const Place& place);

}  // namespace tarvok::project
