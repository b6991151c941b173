#include "editors/routing/route_map_editor.h"

#include <utility>

#include "editors/routing/offered_rows.h"
#include "sections/routing/route_list.h"
#include "sections/routing/route_map_digit.h"

namespace tarvok::editors {
namespace {

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

}  // namespace

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

RouteMapEditor::RouteMapEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, route_map_digit::kTable, Columns(this),
                       {.rows = RowCommands::kFixed, .sort_by = {{1}, {2}, {3}}}) {
  LayOut();
}

void RouteMapEditor::Prepare(const IniText& project) {
  lists_ = LabelledRows(route_list::kTable);
  offered_ = OfferedLists(project);
}

}  // namespace tarvok::editors
