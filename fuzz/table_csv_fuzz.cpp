// Any text as the table of an editor, whose name is the first line: it is taken as a whole or refused as a whole, as one
// step that can be undone, and what is put out is taken in again.

#include <cstdint>
#include <string>

#include "fuzz/demand.h"
#include "fuzz/editor_stage.h"
#include "shell/editor/table_csv.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  fuzz::EditorStage stage(fuzz::TakeLine(text));
  TableEditor* table = stage.form().table();
  if (table == nullptr) return 0;

  const std::string before = ExportCsv(*table);
  const std::size_t steps = table->Steps();
  const Status taken = ImportCsv(*table, text);
  Demand(taken.ok() || (ExportCsv(*table) == before && table->Steps() == steps && !taken.message().empty()));
  Demand(table->Steps() <= steps + 1);
  const std::string after = ExportCsv(*table);
  if (table->Steps() > steps) {
    table->Undo();
    Demand(ExportCsv(*table) == before);
    table->Redo();
    Demand(ExportCsv(*table) == after);
  }
  if (taken.ok() && ImportCsv(*table, after).ok()) Demand(ExportCsv(*table) == after);
  // Whether the form takes the save is its own matter.
  [[maybe_unused]] const bool saved = stage.form().Save_File();
  return 0;
}
