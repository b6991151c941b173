#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/editor/table_editor.h"
#include "store/status.h"

namespace tarvok {

/** The table as comma-separated text: a line of column titles, then every row; lines end in CR LF. Cells with a
 * comma, a quote or a line break stand in quotes. */
std::string ExportCsv(const TableEditor& table);

/**
 * Takes comma-separated (or semicolon-separated) text in as one step: the first line names columns by their
 * titles, in any order; each further line is a row from the first on. Rows behind the last line become blank in
 * those columns. Every cell has to pass its column's rule: an error says line and column, and nothing changes.
 * Columns that can't be changed may stand in the text and are passed over.
 */
Status ImportCsv(TableEditor& table, std::string_view text);

}  // namespace tarvok
