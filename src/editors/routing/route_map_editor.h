#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Route Map Digit" (`frmRouteMap`): digit patterns and what happens to the numbers that match. Saving sorts
 * them and writes every row, including blank ones. */
class RouteMapEditor : public FieldTableEditor {
 public:
  RouteMapEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  void BeforeWrite() override { Sort(true); }
  bool IsRemoved(std::string_view /*value*/) const override { return false; }
  bool EndsWithoutProject() const override { return true; }

 private:
  static std::vector<FieldColumn> Columns(RouteMapEditor* form);

  RowNames lists_;
  std::vector<std::string> offered_;
};

}  // namespace tarvok::editors
