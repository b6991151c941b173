#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editing/key.h"
#include "editing/table_editor.h"
#include "editing/uses.h"

// What a user does to a table. Everything skips rows that are not in sight.
namespace tarvok::editing {

/** A key on the current cell, or in the field or list over it. */
void PressKey(TableEditor& table, Key key);
/** Picks an entry of the current cell's list, "" for the blank one; false if there is no such entry. */
bool PickEntry(TableEditor& table, std::string_view entry);
/** Sets the text of the current cell other than by keys; false if its rule rejects it. */
bool EditCell(TableEditor& table, std::string_view text);

/** The selected cells, as tabs and lines. */
std::string CopyCells(const TableEditor& table);
void ClearCells(TableEditor& table);

/** Pastes a block of cells at the top left corner of the selection; a single cell fills the whole
 * selection. */
std::vector<Refusal> PasteCells(TableEditor& table, std::string_view text);
/** Copies the first row of the selection into all others. */
std::vector<Refusal> FillDown(TableEditor& table);

/** Adds a blank row at the end; false if there is no room. Part of the current undo step. */
bool AppendRow(TableEditor& table);
/** The same, and goes to the row. */
void AddRow(TableEditor& table);
/** Inserts a blank row above the current one, if there is room or the last row is blank. */
void InsertRow(TableEditor& table);
/** Deletes the selected rows. */
void DeleteRows(TableEditor& table);
/** Sorts by the table's keys, also the rows that are not in sight. */
void SortRows(TableEditor& table, bool ascending);

/** Goes to the next cell that contains `text`, wrapping around at the end; false if there is none. */
bool FindNext(TableEditor& table, std::string_view text);
/** Replaces `text` in every cell that accepts the result, in one undo step. Returns the number of changed
 * cells. */
int ReplaceAll(TableEditor& table, std::string_view text, std::string_view by, std::vector<Refusal>& refused);

}  // namespace tarvok::editing
