#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/table_form.h"
#include "editors/uses.h"
#include "project/references.h"
#include "sections/table.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::editors {

/** Names of rows by number: what a reference to a row shows, and how the row is found again. */
class RowNames {
 public:
  /** A row that is not `offered` is still shown where a field refers to it, and still found by its name. */
  void Add(int number, std::string name, bool offered = true);
  /** "" if the number has no name. */
  std::string NameOf(std::string_view stored) const;
  /** The number with this name, in `width` digits; "F" for a blank and for an unknown name, so that no later
   * field moves up. Several rows may share a name: if it is still the name of `before`, the row that the
   * field held, the field keeps that row. */
  std::string Stored(std::string_view name, int width, std::string_view before) const;
  /** The offered names in the order of their numbers, without blanks. */
  std::vector<std::string> Names() const;

 private:
  struct Row {
    int number;
    std::string name;
    bool offered;
  };
  std::vector<Row> names_;
};

/** How a reference is shown and stored. */
struct NamedRows {
  const RowNames* names = nullptr;
  int width = 0;
  bool kept = true;  // a reference that the cell cannot show stays until the cell is edited
};

/** A column of a table editor for a field of its rows, with the conversion between stored value and cell
 * text. By default a cell shows the field as it is, and "F" as blank. */
struct FieldColumn {
  int field;  // from 1; 0 for a column that is not a field of the row
  Column column;
  std::function<std::string(std::string_view stored)> shown = {};
  std::function<std::string(std::string_view cell)> stored = {};
  /** The rows that the field can refer to in a row with these cells; `names` is nullptr if it is not a
   * reference. A cell that `stored` does not convert to a named value is stored as the number of its row. */
  std::function<NamedRows(const std::vector<std::string>& cells)> names = {};
};

/** A field as a cell shows it: "F" and a missing field are blank. */
std::string CellText(std::string_view stored);
/** A cell as it is stored: blank is "F". */
std::string FieldText(std::string_view cell);

/** A column of a field's named values, in the order of its statement. Unnamed values are shown as blank, and
 * blank is stored as "F". */
FieldColumn ChoiceColumn(int field, std::string title, const Field& statement,
                         std::string overlay = "cmbMask");
/** A column whose text is stored as typed. */
FieldColumn TypedColumn(int field, std::string title, EntryRule rule);
/** The one column of a table of numbers of at most `most` digits. A blank cell is stored as an empty
 * value. */
FieldColumn NumberColumn(int most);

/** A column of numbers with a list of the named ones. A number above the statement's highest is stored as the
 * highest, a blank as the statement's text for "not set". */
FieldColumn LimitedColumn(int field, std::string title, const Field& statement, EntryRule rule,
                          std::string overlay = "txtMask");

/** A column that shows a reference by the name of its row; the list starts with the field's named values. An
 * unknown name is stored as "F". `names` must outlive the column; the form sets `list_of` to offer the
 * names. */
FieldColumn ReferenceColumn(int field, std::string title, const Field& statement, const RowNames& names,
                            std::string overlay = "cmbMask");
/** The rows of a table, named by its label and their number: "List 1", "List 2", ... */
RowNames LabelledRows(const Table& table);

/** The directory numbers by number row, without unused rows. */
RowNames AssignNumbers(const IniText& project);
/** The directory numbers of ports by port row; "" for a port without a number. */
RowNames PortNumbers(const IniText& project);
/** Card and channel, joined by "/", by port row; only ports of `type` if it is given. "" for a port that
 * lacks one of the two. */
RowNames PortNames(const IniText& project, std::string_view type = {});

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
  void RepairMoved(IniEdit& project) const;
  /** Writes the rows and removes the keys of removed rows. */
  void WriteRows(IniEdit& project) const;

 private:
  const Table& table_;
  std::vector<FieldColumn> columns_;
  int loaded_rows_ = 0;
};

}  // namespace tarvok::editors
