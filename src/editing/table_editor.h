#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/entry_rule.h"
#include "editing/table_undo.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** How a cell of a column is edited. */
enum class Entry {
  kReadOnly,
  kText,      // typed
  kList,      // picked from a closed list, which also has a blank entry
  kEditList,  // picked from a list or typed
};

/** A column of a table. Columns count from 1; column 0 is the row's number. */
struct Column {
  std::string title;
  Entry entry = Entry::kText;
  EntryRule rule = {};
  std::vector<std::string> list = {};                                    // the same for every row
  std::function<std::vector<std::string>(int row)> list_of = {};         // or computed for the row
  std::function<Entry(int row)> entry_of = {};                           // if it depends on the row
  std::string overlay = {};                                              // name of the control over the cell
  std::function<void(int row, const std::string& before)> changed = {};  // called after a change of a cell
};

/** A rejected cell of a paste, a fill or a replacement, and the reason. */
struct Refusal {
  int row = 0;
  int column = 0;
  std::string text;
  std::string why;
};

/** A rectangle of cells, corners in order. */
struct Selection {
  int top = 1;
  int left = 1;
  int bottom = 1;
  int right = 1;

  bool operator==(const Selection&) const = default;
};

/** A key of a sort. Whole numbers compare as numbers and come before texts; blanks come last in both
 * directions. Equal rows keep their order. */
struct SortKey {
  int column;                 // 0: the current one
  std::string blank_as = {};  // what a blank counts as, instead of coming last
};

/** Which row commands a table has. */
enum class RowCommands {
  kNone,   // rows cannot be inserted or deleted
  kFixed,  // rows shift, the count stays (above `most` it falls); only blank rows are pushed out
  kGrow,   // rows can be added, up to `most`, and deleted
};

/**
 * The table of an editor: cells, selection, the field over the current cell, and undo. What users do with it
 * is in table_operations.h and table_csv.h. Rows count from 1. Independent of projects, windows and forms.
 */
class TableEditor {
 public:
  struct Options {
    std::vector<Column> columns;
    RowCommands rows = RowCommands::kNone;
    int most = 0;  // highest number of rows, for kGrow; for kFixed: deleted rows are refilled up to it
    std::vector<SortKey> sort_by;  // empty: the table cannot be sorted
  };

  explicit TableEditor(Options options) : options_(std::move(options)) {}

  /** Called after every change by the user. */
  std::function<void()> changed;
  void Changed() {
    if (changed) changed();
  }
  /** The text that `mnu_copy` and `mnu_cut` write and `mnu_paste` reads. */
  std::string clipboard;
  /** What the last paste, fill or replacement rejected, for a line below the table. */
  std::vector<Refusal> refused;

  // Filling: does not count as a change and cannot be undone.
  void Clear();
  /** Appends a row; `origin` is its number in the project, 0 if it is not there. Missing cells are blank. */
  void Load(TableRow row);
  /** Changes the highest number of rows; existing rows stay. */
  void SetMost(int rows) { options_.most = rows; }
  /** Makes row n of the table row n of the project. Clears the undo list. */
  void Renumber();

  int rows() const { return static_cast<int>(rows_.size()); }
  int columns() const { return static_cast<int>(options_.columns.size()); }
  const Column& column(int column) const { return options_.columns[static_cast<std::size_t>(column) - 1]; }
  const Options& options() const { return options_; }
  const TableRow& row(int row) const { return rows_[static_cast<std::size_t>(row) - 1]; }
  const std::vector<TableRow>& all_rows() const { return rows_; }
  bool CanAddRow() const { return options_.rows == RowCommands::kGrow && rows() < options_.most; }
  /** "" outside the table. */
  const std::string& Cell(int row, int column) const;
  /** The value that a blank cell holds but cannot show; "" if none. */
  const std::string& Unseen(int row, int column) const;
  /** True if the cell neither shows nor holds anything. */
  bool IsBlank(int row, int column) const { return Cell(row, column).empty() && Unseen(row, column).empty(); }
  bool IsBlank(int row) const { return this->row(row).IsBlank(); }
  std::vector<std::string> ListOf(int row, int column) const;
  Entry EntryOf(int row, int column) const;

  // Moving and selecting. Leaving a cell ends its editing.
  /** False outside the table. */
  bool GoTo(int row, int column);
  /** Extends the selection to this cell, which becomes the current one; the anchor corner stays. */
  void SelectTo(int row, int column);
  /** Selects these cells; the current cell need not be a corner. SelectTo then extends the selection from its
   * previous anchor, or else from the corner opposite the current cell. */
  void Select(const Selection& cells, int row, int column);
  int current_row() const { return row_; }
  int current_column() const { return column_; }
  const Selection& selection() const { return selected_; }
  /** The cell from which SelectTo extends the selection. */
  int anchor_row() const { return anchor_row_; }
  int anchor_column() const { return anchor_column_; }
  void LeaveCell();
  /** Go to the first or last row in sight, in the same column. */
  void GoToTop() { GoTo(NextInSight(1, 1), column_); }
  void GoToBottom() { GoTo(NextInSight(rows(), -1), column_); }

  // Rows in sight: all rows, unless a view filters them.
  /** Filters the table to the matching rows and, with `keep_current`, the current row if it was in sight. If
   * the current row is hidden, moves to the first row in sight. Returns the number of rows in sight. */
  int ShowRows(const std::function<bool(int row)>& matches, bool keep_current);
  /** False outside the table. */
  bool InSight(int row) const { return row >= 1 && row <= rows() && this->row(row).in_sight; }
  bool HasCurrent() const { return InSight(row_); }
  /** The first row in sight starting at `from`, in steps of 1 or -1; 0 if none. */
  int NextInSight(int from, int step) const;
  std::vector<int> RowsInSight(int first, int last) const;

  // The field or list over the current cell.
  bool open() const { return open_.has_value(); }
  /** What it shows. */
  std::string OpenText() const { return open_ ? open_->text : std::string(); }
  /** Opens it with the cell's text. Does nothing on a read-only cell. */
  void Open();
  /** Opens it empty; the cell keeps its text until something is written. */
  void OpenEmpty() { open_ = OpenField{.before = row(row_)}; }
  /** Closes it and takes back what was written since it was opened. */
  void Escape();
  /** The keys typed into a list since it was opened. */
  std::string& sought() { return open_->sought; }

  // Changing cells.
  /** Puts text from the user into the current cell and the field over it, and drops its unseen value. */
  void Write(std::string_view text);
  /** A change by a rule of the editor; belongs to the same undo step as the change that triggered it. */
  void SetCell(int row, int column, std::string_view text);
  /** Empties a cell, including a value that it cannot show. */
  void EraseCell(int row, int column);
  void SetHidden(int row, std::vector<std::string> hidden);
  /** All changes until End are one undo step. */
  void Begin();
  void End();

  /** Replaces all rows, in one undo step. */
  void ReplaceRows(std::vector<TableRow> rows);

  // Undo.
  bool CanUndo() const { return undo_.CanUndo(); }
  bool CanRedo() const { return undo_.CanRedo(); }
  void Undo();
  void Redo();
  /** The number of steps that can be undone. */
  std::size_t Steps() const { return undo_.Count(); }
  /** Undoes all steps after the first `steps` and forgets them. */
  void TakeBack(std::size_t steps);

  /** The form in which a cell accepts a whole text; nullopt, with the reason in `why`, if it does not. */
  std::optional<std::string> Fitting(int row, int column, std::string_view text, std::string& why) const;

 private:
  /** The field or list over the current cell. */
  struct OpenField {
    std::string text;
    TableRow before;       // the row when it was opened; rules may change any of its cells
    bool touched = false;  // false: the cell keeps its text
    std::string sought = {};
  };

  void DropReserved();
  /** Makes this the current cell and selects only it. */
  void MoveTo(int row, int column) {
    row_ = anchor_row_ = row;
    column_ = anchor_column_ = column;
    selected_ = {row, column, row, column};
  }
  bool Put(int row, int column, CellState state);
  void PutBack(const TableRow& before);
  void Restore(const UndoStep& step, bool after);

  Options options_;
  std::vector<TableRow> rows_;
  int row_ = 1;
  int column_ = 1;
  int anchor_row_ = 1;
  int anchor_column_ = 1;
  Selection selected_;
  std::optional<OpenField> open_;
  UndoList undo_;
};

}  // namespace tarvok::editing
