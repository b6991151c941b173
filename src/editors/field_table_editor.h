#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/table_form.h"
#include "editors/field_columns.h"
#include "editors/uses.h"
#include "project/references.h"
#include "store/ini_edit.h"

namespace tarvok::editors {

/** The initial number of rows of a table that shows its section up to "Now". Rows in use above "Now" are
 * shown, too, so that a new row cannot overwrite them. */
int RowsUpToNow(const IniText& project, const Table& table);

/**
 * A table editor for the rows of one table: loads them into columns and writes them back. Derived editors
 * override what differs.
 */
class FieldTableEditor : public TableForm {
 public:
  FieldTableEditor(EditorContext context, FormName name, const Table& table, std::vector<FieldColumn> columns,
                   TableEditor::Options options);

  bool ShowPlace(std::string_view section, int row, int field) override;
  /** The table of the rows; `TableRow::origin` is a row's number in it. */
  const Table& statement() const { return table_; }
  void Saved() override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

  /** The value that a row of the grid had when it was loaded; "" for a new row. */
  std::string_view StoredBefore(int row) const;
  /** A grid row for a row of the project with this number and value. */
  TableRow ShownRow(int number, std::string_view value) const;
  /** The stored fields of all columns, joined by pipes. */
  std::string TextOf(const TableRow& row) const;
  /** The stored field of a column. */
  std::string FieldOf(const TableRow& row, std::size_t column) const;

  /** Reads what the columns need from other sections. Called before the rows are loaded. */
  virtual void Prepare(const IniText& /*project*/) {}
  /** The initial number of rows. */
  virtual int RowsToShow(const IniText& /*project*/) const { return table_.rows.last; }
  /** Fills cells of a row with that value that depend on more than one field. */
  virtual void ShowRow(std::string_view /*value*/, TableRow& /*row*/) const {}
  /** The value to store for a row; by default the fields of all columns joined by pipes. */
  virtual std::string RowText(int row) const;
  /** True if a row with this value is removed from the project; by default an unused one. */
  virtual bool IsRemoved(std::string_view value) const;

  const std::vector<FieldColumn>& field_columns() const { return columns_; }
  /** True if references to this row of the grid are kept and follow it; otherwise they are cleared. */
  virtual bool KeepsReferences(int /*row*/) const { return true; }
  /** Where the rows went since they were loaded. Rows that were deleted or do not keep their references map
   * to 0. */
  RowMoves Moves() const;
  /** The same with a different test for keeping references. */
  RowMoves Moves(const std::function<bool(int row)>& keeps) const;
  /** Updates all references to the rows. The first step of a save. */
  void RepairMoved(IniEdit& project);
  /** Writes the rows and removes the keys of removed rows. */
  void WriteRows(IniEdit& project) const;

 private:
  const Table& table_;
  std::vector<FieldColumn> columns_;
  int loaded_rows_ = 0;
};

}  // namespace tarvok::editors
