#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/table_form.h"
#include "editors/uses.h"
#include "project/references.h"
#include "sections/field.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::editors {

/** Names of rows, by the number that refers to them: what a reference shows and how it is found again. */
class RowNames {
 public:
  /** A row that is not `offered` is shown where a field refers to it, and found again. */
  void Add(int number, std::string name, bool offered = true);
  /** "" for a number without a name. */
  std::string NameOf(std::string_view stored) const;
  /** The number in `width` digits; "F" for a blank and for a name that is not there, so that no later field
   * of the row moves up. A name may stand at several rows: while it still is that of `before`, the row that
   * the field held, the field stays with that row. */
  std::string Stored(std::string_view name, int width, std::string_view before) const;
  /** The names that are offered, in the order of their numbers, blanks left out. */
  std::vector<std::string> Names() const;

 private:
  struct Row {
    int number;
    std::string name;
    bool offered;
  };
  std::vector<Row> names_;
};

/** What a reference shows, and how many digits its number has. */
struct NamedRows {
  const RowNames* names = nullptr;
  int width = 0;
  bool kept = true;  // one that its cell can't show stays as it is until somebody edits the cell
};

/** A column of a table editor over a field of its rows: how the stored value and the cell's text turn into
 * each other. Without a function of its own a cell shows the field as it stands, "F" as blank, and back. */
struct FieldColumn {
  int field;  // from 1; 0 for a column that no field of the row holds
  Column column;
  std::function<std::string(std::string_view stored)> shown = {};
  std::function<std::string(std::string_view cell)> stored = {};
  /** The rows that the field of a row with these cells refers to; no names where it is no reference. A cell
   * that is none of the named values of `stored` is stored as the number of its row. */
  std::function<NamedRows(const std::vector<std::string>& cells)> names = {};
};

/** A field as a cell shows it: "F" and what is missing are blank. */
std::string CellText(std::string_view stored);
/** A cell as a field holds it: blank is "F". */
std::string FieldText(std::string_view cell);

/** A column that shows a field's named values, in the order of its statement. A value without a name shows
 * blank, and a blank is stored as "F". */
FieldColumn ChoiceColumn(int field, std::string title, const Field& statement,
                         std::string overlay = "cmbMask");
/** A column that is typed as it is stored. */
FieldColumn TypedColumn(int field, std::string title, EntryRule rule);
/** The one column of a table of numbers of at most `most` digits. A blank cell is stored as an empty value. */
FieldColumn NumberColumn(int most);

/** A column of numbers up to the statement's highest, with entries for its named ones. A larger number is
 * stored as the highest one, a blank by the statement's text for "not set". */
FieldColumn LimitedColumn(int field, std::string title, const Field& statement, EntryRule rule,
                          std::string overlay = "txtMask");

/** A column that shows a reference by the name of its row, in front of that its named values; a name without a
 * row is stored as "F". `names` must outlive the column; what it offers the form says in `list_of`. */
FieldColumn ReferenceColumn(int field, std::string title, const Field& statement, const RowNames& names,
                            std::string overlay = "cmbMask");
/** The rows of a table under its label and their numbers: "List 1", "List 2", ... */
RowNames LabelledRows(const Table& table);

/** The directory numbers by number row; unused rows have none. */
RowNames AssignNumbers(const IniText& project);
/** The directory numbers of ports, by port row; "" for a port without one. */
RowNames PortNumbers(const IniText& project);
/** Card and channel, joined by "/", by port row; those of `type` alone where one is given. "" for a
 * port that lacks one of the two. */
RowNames PortNames(const IniText& project, std::string_view type = {});

/** Rows with which a table begins that shows its section up to "Now": a row in use above it is shown, too, so
 * that a new row can't take its place. */
int RowsUpToNow(const IniText& project, const Table& table);

/**
 * A table editor whose rows are the rows of one table: it loads them into columns and writes them back. What
 * an editor does besides it adds in its own functions.
 */
class FieldTableEditor : public TableForm {
 public:
  FieldTableEditor(EditorContext context, FormName name, const Table& table, std::vector<FieldColumn> columns,
                   TableEditor::Options options);

  bool ShowPlace(std::string_view section, int row, int field) override;
  /** What the rows are rows of; `TableRow::origin` is a row's number. */
  const Table& statement() const { return table_; }
  void Saved() override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

  /** The value that a row of the grid was loaded with, "" for a new row; it is kept beside the cells. */
  std::string_view StoredBefore(int row) const;
  /** The cells of a row with that number and value. */
  TableRow ShownRow(int number, std::string_view value) const;
  /** The columns' fields of a row, joined by pipes. */
  std::string TextOf(const TableRow& row) const;
  /** The field of a column, as it is written. */
  std::string FieldOf(const TableRow& row, std::size_t column) const;

  /** Builds what columns need of other sections; before the rows are read. */
  virtual void Prepare(const IniText& /*project*/) {}
  /** Rows that the table begins with. */
  virtual int RowsToShow(const IniText& /*project*/) const { return table_.rows.last; }
  /** What no field by itself tells of the cells of a row with that value. */
  virtual void ShowRow(std::string_view /*value*/, TableRow& /*row*/) const {}
  /** The value of a row, by default the columns' fields joined by pipes. */
  virtual std::string RowText(int row) const;
  /** A row whose key is removed: the table's empty rows. */
  virtual bool IsRemoved(std::string_view value) const;

  const std::vector<FieldColumn>& field_columns() const { return columns_; }
  /** Whether what refers to this row of the grid still means something; it then follows the row. */
  virtual bool KeepsReferences(int /*row*/) const { return true; }
  /** Where the rows went since they were loaded; a row that was deleted, or does not keep its references, is
   * gone. */
  RowMoves Moves() const;
  /** The same with another test of which rows keep their references. */
  RowMoves Moves(const std::function<bool(int row)>& keeps) const;
  /** Makes every reference to the rows follow them; the first thing that a save does. */
  void RepairMoved(IniEdit& project) const;
  /** Writes the rows and removes the keys of those that are gone. */
  void WriteRows(IniEdit& project) const;

 private:
  const Table& table_;
  std::vector<FieldColumn> columns_;
  int loaded_rows_ = 0;
};

}  // namespace tarvok::editors
