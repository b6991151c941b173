#include <string>
#include <utility>
#include <vector>

#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "editors/routing/offered_rows.h"
#include "sections/routing/route_list.h"
#include "sections/routing/route_map_digit.h"

namespace tarvok::editors {
namespace route_map_editor {

/** "Route Map Digit" (`frmRouteMap`): digit patterns and what happens to the numbers that match. Saving sorts
 * them and writes every row, including blank ones. */
class RouteMapEditor : public FieldTableEditor {
 public:
  RouteMapEditor(const EditorContext& context, const FormName& name)
      : FieldTableEditor(context, name, route_map_digit::kTable, Columns(this),
                         {.rows = RowCommands::kFixed, .sort_by = {{1}, {2}, {3}}}) {
    LayOut();
  }

 protected:
  void Prepare(const IniText& project) override {
    lists_ = LabelledRows(route_list::kTable);
    offered_ = OfferedLists(project);
  }
  void BeforeWrite() override { Sort(true); }
  bool IsRemoved(std::string_view /*value*/) const override { return false; }
  bool EndsWithoutProject() const override { return true; }

 private:
  static std::vector<FieldColumn> Columns(RouteMapEditor* form);

  RowNames lists_;
  std::vector<std::string> offered_;
};

constexpr int kMostTyped = 19;
/** The sets differ: some letters are accepted only as the first key on a cell, others only after it. */
constexpr EntryRule kPatternRule = {.characters = "0123456789-xXzZnNcC*#Yy:uWwLl",
                                    .first_characters = "0123456789-xXpZnNcC*#YyUuWwLl",
                                    .most = kMostTyped,
                                    .upper = true,
                                    .first_replaces = true};
constexpr EntryRule kReleaseRule = {.characters = "01", .most = 1, .first_replaces = true};

EntryRule TimeoutRule() {
  EntryRule rule = LimitRule();
  rule.first_characters = "123456789";
  rule.first_replaces = true;
  return rule;
}

std::vector<FieldColumn> RouteMapEditor::Columns(RouteMapEditor* form) {
  using namespace route_map_digit;
  const auto& fields = kTable.fields;
  FieldColumn list =
      ReferenceColumn(kRouteList, "Route List", fields[kRouteList - 1], form->lists_, "cmbMask2");
  const std::vector<std::string> named = list.column.list;
  list.column.list_of = [form, named](int) {
    std::vector<std::string> entries = named;
    entries.insert(entries.end(), form->offered_.begin(), form->offered_.end());
    return entries;
  };
  FieldColumn release = TypedColumn(kReleaseCo, "Release CO", kReleaseRule);
  release.shown = [](std::string_view stored) {
    const std::string text = CellText(stored);
    return text.empty() || text == "1" ? text : "0";
  };
  return {TypedColumn(kDigit, "Digit", kPatternRule),
          ChoiceColumn(kSendNumber, "Send Number", fields[kSendNumber - 1]), std::move(list),
          std::move(release),
          LimitedColumn(kTimeout, "Timeout", fields[kTimeout - 1], TimeoutRule(), "cmbMask3")};
}
}  // namespace route_map_editor

extern const Editor kRouteMapEditor{"13 - Route Map Digit",
                                    "routemap",
                                    {"frmRouteMap", "Route Map Digit"},
                                    Make<route_map_editor::RouteMapEditor>};

}  // namespace tarvok::editors
