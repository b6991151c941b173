#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editing/table_form.h"
#include "editing/table_pages.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** What both forms of classes are: a list beside a table in which each column is a list of its own. */
class ClassEditor : public TableForm {
 public:
  ClassEditor(const EditorContext& context, const FormName& name, std::vector<Column> columns,
              RowCommands commands, int rows);

  void Saved() override {}

 protected:
  /** The list and the table, the pages filled from `pages`. */
  void AddPages(ControlId id, std::string caption, std::vector<std::string> entries);
  /** Shows the first page of these: for each the texts of each column. */
  void FillPages(const std::vector<std::vector<std::vector<std::string>>>& pages);
  /** The texts of a column of a page, both from 0. */
  std::vector<std::string> TextsOf(int page, int column);
  bool ShowPage(int page, int row);
  void BeforeWrite() override { KeepPage(); }

 private:
  static std::vector<TableRow> RowsOf(const std::vector<std::vector<std::string>>& columns);
  void KeepPage();
  void SelectPage();

  Control* list_ = nullptr;
  TablePages pages_;
};

/** `frmClassDigit`: the numbers that each class bans and allows. */
class BanAllowEditor : public ClassEditor {
 public:
  BanAllowEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static std::vector<Column> Columns(BanAllowEditor* form);
  /** The column holds as many numbers as a class may have. */
  bool IsFull(int column, int most) const;
};

/** `frmCORGroup`: the classes of each group. */
class BanNumberGroupEditor : public ClassEditor {
 public:
  BanNumberGroupEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static std::vector<Column> Columns(BanNumberGroupEditor* form);

  std::vector<std::string> offered_;
};

}  // namespace tarvok::editors
