#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editing/table_form.h"
#include "editing/table_pages.h"
#include "editors/uses.h"
#include "sections/table.h"
#include "store/ini_edit.h"

namespace tarvok::editors {

/**
 * The base of the two editors of ban classes: a list of pages next to a table. Each column of the table is a
 * list of its own, without gaps.
 */
class ClassEditor : public TableForm {
 public:
  ClassEditor(const EditorContext& context, const FormName& name, std::vector<Column> columns,
              RowCommands commands, int rows);

  void Saved() override {}

 protected:
  /** Adds the list of pages and lays out the form. Must be called by the constructor of the derived
   * editor. */
  void AddPages(ControlId id, std::string caption, std::vector<std::string> entries);
  /** Replaces all pages, given as the texts of each column of each page, and shows the first one. */
  void FillPages(const std::vector<std::vector<std::vector<std::string>>>& pages);
  /** The non-empty texts of a column of a page, both from 0. */
  std::vector<std::string> TextsOf(int page, int column);
  bool ShowPage(int page, int row);
  void BeforeWrite() override { KeepPage(); }

  /** The classes that a group's value names, as they are written into the project. */
  static std::vector<std::string> Classes(std::string_view list);
  /** Stores a list. If it equals the stored one as `read` reads that, the stored text stays as it is. */
  static void StoreList(IniEdit& project, const Table& table, int number,
                        const std::vector<std::string>& texts,
                        std::vector<std::string> (*read)(std::string_view list));
  /** Unsets the day and night groups of each port profile that have no class. The group for a cut hold
   * stays. */
  void LeaveEmptyGroups(IniEdit& project);

 private:
  static std::vector<TableRow> RowsOf(const std::vector<std::vector<std::string>>& columns);
  void KeepPage();
  void SelectPage();

  ListBox* list_ = nullptr;
  TablePages pages_;
};

}  // namespace tarvok::editors
