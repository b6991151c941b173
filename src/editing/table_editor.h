#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/entry_rule.h"
#include "editing/key.h"
#include "editing/table_undo.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** How a cell of a column is edited. */
enum class Entry {
  kReadOnly,
  kText,      // typed
  kList,      // picked from a closed list; every list has a blank entry, too
  kEditList,  // picked from a list or typed
};

/** A column of a table. Columns count from 1; column 0 is the row's number. */
struct Column {
  std::string title;
  Entry entry = Entry::kText;
  EntryRule rule = {};
  std::vector<std::string> list = {};                             // the same for every row
  std::function<std::vector<std::string>(int row)> list_of = {};  // or made for the row
  std::function<Entry(int row)> entry_of = {};  // where rows differ in how the cell is edited
  std::string overlay = {};                     // name of the control that lies over the cell
  std::function<void(int row, const std::string& before)> changed = {};  // its cell got another text
};

/** What a text that came in by clipboard, search or file was refused for. */
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

/** The keys of a sort, in turn. Whole numbers compare as numbers and stand before texts; blanks stand last
 * both ways. Equal rows keep their order. */
struct SortKey {
  int column;                 // 0: the current one
  std::string blank_as = {};  // what a blank counts as, instead of standing last
};

/** Which row commands a table has. */
enum class RowCommands {
  kNone,   // every row has its place
  kFixed,  // rows move, their count stays (above `most` it falls): what is pushed over the end has to be blank
  kGrow,   // rows may come and go, up to `most`
};

/**
 * The rules of a table editor: grid, selection, typing, lists, clipboard text, rows, sort, undo. Rows count
 * from 1. Nothing here knows a project, a window or a form.
 */
class TableEditor {
 public:
  struct Options {
    std::vector<Column> columns;
    RowCommands rows = RowCommands::kNone;
    int most = 0;  // rows at most, for kGrow; for kFixed up to which deleted ones are filled up
    std::vector<SortKey> sort_by;  // empty: the table has no sort
  };

  explicit TableEditor(Options options) : options_(std::move(options)) {}

  /** Behind every change that a person made. */
  std::function<void()> changed;

  // Filling: no change, nothing to undo.
  void Clear();
  /** A row with its number in the project, 0 for one that is not there. Missing cells are blank. */
  void Load(TableRow row);
  /** Rows at most from now on; those that are there stay. */
  void SetMost(int rows) { options_.most = rows; }
  /** Row n of the table is row n of the project from now on. */
  void Renumber();

  int rows() const { return static_cast<int>(rows_.size()); }
  int columns() const { return static_cast<int>(options_.columns.size()); }
  const Column& column(int column) const { return options_.columns[static_cast<std::size_t>(column) - 1]; }
  const Options& options() const { return options_; }
  const TableRow& row(int row) const { return rows_[static_cast<std::size_t>(row) - 1]; }
  /** "" outside of the table. */
  const std::string& Cell(int row, int column) const;
  /** What a blank cell holds and can't show, "" for nothing. */
  const std::string& Unseen(int row, int column) const;
  /** The cell neither shows nor holds anything. */
  bool IsBlank(int row, int column) const { return Cell(row, column).empty() && Unseen(row, column).empty(); }
  bool IsBlank(int row) const { return this->row(row).IsBlank(); }
  std::vector<std::string> ListOf(int row, int column) const;
  Entry EntryOf(int row, int column) const;

  // Moving and selecting. Leaving a cell ends its editing.
  /** False outside of the table. */
  bool GoTo(int row, int column);
  /** Draws the selection on to this cell, which becomes the current one; the corner across stays. */
  void SelectTo(int row, int column);
  /** Selects these cells however they were chosen; the current one need not be a corner of them. SelectTo goes on
   * from the corner that it drew from before, or else from the one across from the current cell. */
  void Select(const Selection& cells, int row, int column);
  int current_row() const { return row_; }
  int current_column() const { return column_; }
  const Selection& selection() const { return selected_; }
  /** The cell from which SelectTo draws. */
  int anchor_row() const { return anchor_row_; }
  int anchor_column() const { return anchor_column_; }
  void LeaveCell();
  /** To the first or the last row in sight, in the same column. */
  void GoToTop() { GoTo(NextInSight(1, 1), column_); }
  void GoToBottom() { GoTo(NextInSight(rows(), -1), column_); }

  // Rows in sight: all of them, unless a view filters. Keys and whatever acts on the selection pass the others
  // over, and do nothing where none is in sight.
  /** Leaves in sight the rows that match, and with `keep_current` the current one if it was. The current cell
   * goes to the first of them where its own row is left out. Returns how many they are. */
  int ShowRows(const std::function<bool(int row)>& matches, bool keep_current);
  /** False outside of the table. */
  bool InSight(int row) const { return row >= 1 && row <= rows() && this->row(row).in_sight; }

  // Editing the current cell.
  void Press(Key key);
  /** The field or list over the current cell is open. */
  bool open() const { return open_.has_value(); }
  /** What the open field shows. */
  std::string OpenText() const;
  /** Opens the field or list over the current cell with its text; a read-only cell has none. */
  void Open();
  /** Chooses an entry of the current cell's list, "" for the blank one; false if it has no such entry. */
  bool Pick(std::string_view entry);
  /** Another text for the current cell, by other means than keys; false if its rule refuses it. */
  bool EditText(std::string_view text);
  /** A change that a rule of the editor makes, as part of the step of the change that it answers. */
  void SetCell(int row, int column, std::string_view text);
  /** Empties a cell, also of what it can't show. */
  void EraseCell(int row, int column);
  void SetHidden(int row, std::vector<std::string> hidden);
  /** All changes up to End are one step. */
  void Begin();
  void End();

  // The selection as a whole.
  std::string Copy() const;
  void ClearCell();
  /** Puts a block of cells from the selection's corner on; a single cell fills the whole selection. */
  std::vector<Refusal> Paste(std::string_view text);
  /** The first row of the selection goes into all of its rows below. */
  std::vector<Refusal> FillDown();

  // Rows.
  bool CanAddRow() const;
  void AddRow();
  void InsertRow();
  /** Deletes the selected rows that are in sight. */
  void DeleteRow();
  void Sort(bool ascending);
  /** Puts rows into another order or number; one step. */
  void ReplaceRows(std::vector<TableRow> rows);
  /** A blank row at the end; false if there is no room. Part of the running step. */
  bool Append();

  // Search.
  /** The next cell in sight behind the current one, around the end, whose text holds `text`; false if there is
   * none. */
  bool FindNext(std::string_view text);
  /** Replaces it in every cell in sight that takes the result, as one step. Returns the number of cells changed. */
  int ReplaceAll(std::string_view text, std::string_view by, std::vector<Refusal>& refused);

  // Undo.
  bool CanUndo() const { return undo_.CanUndo(); }
  bool CanRedo() const { return undo_.CanRedo(); }
  void Undo();
  void Redo();
  /** The number of steps that can be undone. */
  std::size_t Steps() const { return undo_.Count(); }
  /** Undoes all steps behind the first `steps` as if they had never been. */
  void TakeBack(std::size_t steps);

  /** What a text that comes as a whole becomes in a cell; nothing, with the reason, if the cell refuses it. */
  std::optional<std::string> Fitting(int row, int column, std::string_view text, std::string& why) const;

 private:
  /** The field or list over the current cell. */
  struct OpenField {
    std::string text;
    TableRow before;          // the row when it was opened: a rule may answer in any of its cells
    bool touched = false;     // until then the cell keeps its text
    std::string sought = {};  // keys typed into a closed list
  };

  void PressText(Key key);
  void PressList(Key key);
  void PressOpen(Key key);
  void OpenWith(char key);
  void SeekEntry(char key);
  void Write(std::string_view text);
  void Move(int rows, int columns);
  void NextRow();
  void DropReserved();
  /** The first row in sight from that one on, in steps of 1 or -1; 0 for none. */
  int NextInSight(int from, int step) const;
  std::vector<int> RowsInSight(int first, int last) const;
  bool HasCurrent() const { return InSight(row_); }
  /** Makes this the current cell and the only one that is selected. */
  void MoveTo(int row, int column) {
    row_ = anchor_row_ = row;
    column_ = anchor_column_ = column;
    selected_ = {row, column, row, column};
  }
  void Change(int row, int column, std::string_view text);
  bool Put(int row, int column, CellState state);
  void PutBack(const TableRow& before);
  void Restore(const UndoStep& step, bool after);
  std::vector<Refusal> PutBlock(const std::vector<std::vector<std::string>>& block, Selection where,
                                bool fill);
  void Changed() {
    if (changed) changed();
  }

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
