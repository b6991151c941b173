#pragma once

#include <functional>
#include <string>
#include <vector>

#include "editing/editor_form.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** An editor with a table, and the buttons and menu that all of them share. */
class TableForm : public EditorForm {
 public:
  TableForm(EditorContext context, FormName name, TableEditor::Options table);

  TableEditor* table() override { return &table_; }
  /** By default row n of the table is now row n of the project. */
  void Saved() override { table_.Renumber(); }

 protected:
  TableEditor& grid() { return table_; }
  const TableEditor& grid() const { return table_; }
  /** Lays out the table with the parts above it and next to it, and the buttons below it: the common ones,
   * `buttons`, Save and Cancel. */
  void LayOut(std::vector<FormLayout> above = {}, std::vector<FormLayout> buttons = {},
              std::vector<FormLayout> next_to = {});
  void Sort(bool ascending);

 private:
  void AddEditMenu();
  void AddRowMenu();
  void AddSortMenu();
  void SortByButton();

  TableEditor table_;
  std::vector<FormLayout> frame_buttons_;
  Button* sort_ = nullptr;
  bool next_ascending_ = true;
};

/** The non-empty texts that occur more than once, sorted. */
std::vector<std::string> Repeats(std::vector<std::string> texts);

}  // namespace tarvok::editing
