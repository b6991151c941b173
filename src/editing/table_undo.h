#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "editing/uses.h"

namespace tarvok::editing {

/** A row of a table: its cells, and hidden values of the editor that move with the row. */
struct TableRow {
  int origin = 0;  // its number in the project when loaded; 0 for a new row
  std::vector<std::string> cells;
  std::vector<std::string> hidden = {};
  std::vector<std::string> unseen = {};  // by column from 0: a value that the cell cannot show; "" if none
  bool in_sight = true;                  // not filtered out

  const std::string& Unseen(std::size_t column) const {
    static const std::string kNothing;
    return column < unseen.size() ? unseen[column] : kNothing;
  }
  /** True if no cell shows or holds anything. */
  bool IsBlank() const {
    const auto is_empty = [](const std::string& text) { return text.empty(); };
    return std::all_of(cells.begin(), cells.end(), is_empty) &&
           std::all_of(unseen.begin(), unseen.end(), is_empty);
  }
};

/** The contents of a cell. A value that the table cannot show stays until the cell is changed. */
struct CellState {
  std::string text;
  std::string unseen = {};

  bool operator==(const CellState&) const = default;
};

inline void SetState(TableRow& row, int column, const CellState& state) {
  const auto index = static_cast<std::size_t>(column) - 1;
  row.cells[index] = state.text;
  if (!state.unseen.empty() && row.unseen.size() <= index) row.unseen.resize(row.cells.size());
  if (index < row.unseen.size()) row.unseen[index] = state.unseen;
}

/** A step that can be undone. */
struct UndoStep {
  struct Cell {
    int row;
    int column;
    CellState before;
    CellState after;
  };
  std::vector<Cell> cells;
  std::optional<std::vector<TableRow>> rows_before;  // all rows, if the step moved rows
  std::vector<TableRow> rows_after;
  int row = 1;  // the current cell
  int column = 1;
};

/** The undo steps in order. Keys typed into one cell without leaving it are one step, and so are all changes
 * between Begin and End. */
class UndoList {
 public:
  /** The step that the next change belongs to. Steps that were undone are forgotten. */
  UndoStep& Now(int row, int column) {
    steps_.resize(done_);
    if (!joined_ || steps_.empty()) {
      steps_.emplace_back();
      steps_.back().row = row;
      steps_.back().column = column;
      ++done_;
    }
    joined_ = true;
    return steps_.back();
  }
  /** The next change starts a new step, unless it is between Begin and End. */
  void Part() {
    if (depth_ == 0) joined_ = false;
  }
  void Begin() {
    if (depth_++ == 0) joined_ = false;
  }
  void End() {
    --depth_;
    Part();
  }
  /** The step that further changes join; nullptr if none. */
  UndoStep* Joined() { return joined_ && done_ > 0 ? &steps_[done_ - 1] : nullptr; }
  void Clear() { *this = UndoList(); }
  std::size_t Count() const { return done_; }
  bool CanUndo() const { return done_ > 0; }
  bool CanRedo() const { return done_ < steps_.size(); }
  const UndoStep& Undo() {
    joined_ = false;
    return steps_[--done_];
  }
  /** Forgets the steps that were undone. */
  void Forget() { steps_.resize(done_); }
  const UndoStep& Redo() {
    joined_ = false;
    return steps_[done_++];
  }

 private:
  std::vector<UndoStep> steps_;
  std::size_t done_ = 0;
  int depth_ = 0;
  bool joined_ = false;
};

}  // namespace tarvok::editing
