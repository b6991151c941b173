#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editing/table_pages.h"
#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Route List" (`frmRoute`): the routes of each route list. The project stores the routes of all lists in
 * one sequence; here a list next to the table selects whose routes are shown. A route list is sorted when it
 * is left or saved. */
class RouteListEditor : public FieldTableEditor {
 public:
  RouteListEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;
  void Saved() override {}

 protected:
  void Load(const IniText& project) override;
  void BeforeWrite() override { KeepList(); }
  void Write(IniEdit& project) override;
  bool EndsWithoutProject() const override { return true; }

 private:
  static std::vector<FieldColumn> Columns(RouteListEditor* form);
  std::vector<std::vector<TableRow>> RoutesOf(const IniText& project) const;
  void KeepList();
  void SelectList();

  RowNames groups_;
  std::vector<std::string> offered_groups_;
  Control& lists_;
  TablePages pages_;
};

}  // namespace tarvok::editors
