#pragma once

#include <functional>
#include <string>
#include <vector>

#include "editing/editor_form.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** An editor that is a table: the frame that all of them share, with its buttons and its menu. */
class TableForm : public EditorForm {
 public:
  TableForm(EditorContext context, FormName name, TableEditor::Options table);

  TableEditor* table() override { return &table_; }
  /** The text that `mnu_copy` and `mnu_cut` put out and `mnu_paste` takes in. */
  std::string clipboard;
  /** What the last paste, fill or replace refused, and why; for a line below the table. */
  const std::vector<Refusal>& refused() const { return refused_; }
  /** Takes the place of the last note. */
  void Note(std::vector<Refusal> refused) { refused_ = std::move(refused); }
  /** `txtMask` or the list over the current cell, by the control's name; the first column that has it. */
  std::vector<std::string> OverlayEntries(std::string_view overlay) const;
  /** A table of rows that the project counts from 1 was saved: row n is row n. */
  void Saved() override { table_.Renumber(); }

 protected:
  TableEditor& grid() { return table_; }
  const TableEditor& grid() const { return table_; }
  /** The table with what stands above it, what stands in front of it, and the buttons below it: the frame's,
   * the form's own, and Save and Cancel. */
  void LayOut(std::vector<FormLayout> above = {}, std::vector<FormLayout> buttons = {},
              std::vector<FormLayout> beside = {});
  void Sort(bool ascending);
  virtual bool sorts() const { return !table_.options().sort_by.empty(); }

 private:
  void AddEditMenu();
  void AddRowMenu();
  void AddSortMenu();
  void SortByButton();

  TableEditor table_;
  std::vector<Refusal> refused_;
  std::vector<FormLayout> frame_buttons_;
  Control* sort_ = nullptr;
  bool next_ascending_ = true;
};

/** Every text that stands more than once among the non-empty ones, each once, sorted. */
std::vector<std::string> Repeats(std::vector<std::string> texts);

}  // namespace tarvok::editing
