// Any text as the table of the editor named in the first line: it is imported or refused as a whole, in one
// step that can be undone, and an export can be imported again.

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "editing/table_csv.h"
#include "fuzz/demand.h"
#include "fuzz/editor_stage.h"
#include "tests/floors.h"

namespace {

using namespace tarvok;
using namespace tarvok::fuzz;

std::vector<TableRow> RowsOf(const TableEditor& table) {
  std::vector<TableRow> rows;
  for (int row = 1; row <= table.rows(); ++row) rows.push_back(table.row(row));
  return rows;
}

bool HasRows(const TableEditor& table, const std::vector<TableRow>& rows) {
  if (table.rows() != static_cast<int>(rows.size())) return false;
  return std::ranges::all_of(rows, [&, n = 0](const TableRow& row) mutable {
    const TableRow& now = table.row(++n);
    return now.origin == row.origin && now.cells == row.cells && now.hidden == row.hidden;
  });
}

/**
 * A form that stays open for all inputs, because opening one costs as much as a hundred imports. Each input
 * must leave it as it was.
 */
struct KeptForm {
  explicit KeptForm(const Editor& editor) : stage(editor) {
    if (stage.form().table() != nullptr) before = RowsOf(*stage.form().table());
  }

  fuzz::EditorStage stage;
  std::vector<TableRow> before;
};

KeptForm& KeptFormOf(const Editor& editor) {
  static std::map<const Editor*, std::unique_ptr<KeptForm>> forms;
  std::unique_ptr<KeptForm>& form = forms[&editor];
  if (form == nullptr) form = std::make_unique<KeptForm>(editor);
  return *form;
}

/** Imports the text and checks the changes. */
void Judge(TableEditor& table, const std::vector<TableRow>& before, std::string_view text) {
  const Status taken = ImportCsv(table, text);
  Demand(table.Steps() <= (taken.ok() ? 1U : 0U) && !table.CanRedo());
  Demand(taken.ok() == taken.message().empty());
  if (table.Steps() == 0) {
    Demand(HasRows(table, before));
    return;
  }
  const std::string after = ExportCsv(table);
  table.Undo();
  Demand(HasRows(table, before));
  table.Redo();
  if (ImportCsv(table, after).ok()) Demand(ExportCsv(table) == after);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  KeptForm& form = KeptFormOf(fuzz::EditorOf(fuzz::TakeLine(text)));
  TableEditor* table = form.stage.form().table();
  if (table == nullptr) return 0;
  Judge(*table, form.before, text);
  if (table->Steps() == 0) return 0;
  table->TakeBack(0);
  Demand(table->Steps() == 0 && HasRows(*table, form.before));
  return 0;
}
