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

/** Callbacks of an import; both are optional. */
struct CsvImport {
  /** Converts a cell of the text to the table's form; nullopt, with the reason in `why`, if it cannot. */
  std::function<std::optional<std::string>(const std::string& cell, std::string& why)> convert = {};
  /** Asks whether `rows` non-blank rows may be replaced by `by` rows in these columns; false cancels the
   * import. */
  std::function<bool(int rows, int by, const std::vector<int>& columns)> may_replace = {};
};

/** All rows of the table, filtered out or not, as comma-separated text: a line of column titles, then every
 * row. Lines end with CR LF. Cells with a comma, a quote or a line break are quoted. */
std::string ExportCsv(const TableEditor& table);

/**
 * Imports comma-separated (or semicolon-separated) text as one undo step. The first line names columns by
 * their titles, in any order; each further line is a row, from the first row on. Rows after the last line
 * become blank in these columns. If a cell breaks its column's rule, the error names line and column and
 * nothing changes. Read-only columns are ignored. Rows that are filtered out count like others.
 */
Status ImportCsv(TableEditor& table, std::string_view text, const CsvImport& import = {});

}  // namespace tarvok::editing
