#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/table_editor.h"
#include "editing/uses.h"
#include "store/status.h"

namespace tarvok::editing {

/** What an import asks of the one who starts it; each may be left out. */
struct CsvImport {
  /** A cell of the text as the table keeps it; nothing, with the reason, where it can't. */
  std::function<std::optional<std::string>(const std::string& cell, std::string& why)> convert = {};
  /** Whether so many rows that hold something are replaced by the text's in these columns; they stay at false. */
  std::function<bool(int rows, int by, const std::vector<int>& columns)> may_replace = {};
};

/** All rows of the table, in sight or not, as comma-separated text: a line of column titles, then every row;
 * lines end in CR LF. Cells with a comma, a quote or a line break stand in quotes. */
std::string ExportCsv(const TableEditor& table);

/**
 * Takes comma-separated (or semicolon-separated) text in as one step: the first line names columns by their
 * titles, in any order; each further line is a row from the first on. Rows behind the last line become blank in
 * those columns. Every cell has to pass its column's rule: an error says line and column, and nothing changes.
 * Columns that can't be changed may stand in the text and are passed over. Rows out of sight count like others.
 */
Status ImportCsv(TableEditor& table, std::string_view text, const CsvImport& import = {});

}  // namespace tarvok::editing
