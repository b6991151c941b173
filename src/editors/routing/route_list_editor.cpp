#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "editing/table_pages.h"
#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "editors/routing/offered_rows.h"
#include "editors/used_by.h"
#include "sections/routing/group_out.h"
#include "sections/routing/route.h"
#include "sections/routing/route_list.h"
#include "sections/rows.h"

namespace tarvok::editors {
namespace route_list_editor {

using namespace route;

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
  ListBox& lists_;
  TablePages pages_;
};

constexpr int kRoutesOfList = 40;
constexpr int kMostTyped = 19;

/** A "P" must be followed by a digit. */
bool FitsPause(std::string_view text, char key) {
  const bool after_pause = !text.empty() && (text.back() == 'P' || text.back() == 'p');
  return !after_pause || (key >= '0' && key <= '9');
}

constexpr EntryRule kTimeRule = {.characters = "0123456789",
                                 .first_characters = "012",
                                 .most = 4,
                                 .first_replaces = true,
                                 .fits = FitsTime,
                                 .wants = kWantsTime};
constexpr std::string_view kWantsPause = "must have a digit after each P";
constexpr EntryRule kSendRule = {.characters = "0123456789XxEeAaPp*#",
                                 .most = kMostTyped,
                                 .upper = true,
                                 .fits = FitsPause,
                                 .wants = kWantsPause};
constexpr EntryRule kSaveRule = {.characters = "0123456789XxEeAaNnPp*#",
                                 .most = kMostTyped,
                                 .upper = true,
                                 .fits = FitsPause,
                                 .wants = kWantsPause};

FieldColumn CountColumn(int field, std::string title) {
  const Field& statement = StatementOf(kTable, field);
  return {.field = field,
          .column = {.title = std::move(title),
                     .entry = Entry::kList,
                     .list = NumberedEntries(statement.low, statement.high),
                     .overlay = "cmbMask3"}};
}

/** The number of the route with this key; 0 if the key is not a route's. */
int RouteOfKey(std::string_view key) {
  const std::int64_t number = Val(key);
  return number >= 1 && number <= kTable.rows.kept && KeyOf(kTable, static_cast<int>(number)) == key
             ? static_cast<int>(number)
             : 0;
}

std::vector<FieldColumn> RouteListEditor::Columns(RouteListEditor* form) {
  const auto& fields = kTable.fields;
  FieldColumn group = ReferenceColumn(kGroup, "Group", fields[kGroup - 1], form->groups_);
  group.column.list_of = [form](int) { return form->offered_groups_; };
  FieldColumn day = ChoiceColumn(kDay, "Day", fields[kDay - 1], "cmbMask2");
  day.stored = [named = day.stored, unset = fields[kDay - 1].unset_as](std::string_view cell) {
    return cell.empty() ? std::string(unset) : named(cell);
  };
  return {std::move(group),
          ChoiceColumn(kTypeSeek, "Type Seek", fields[kTypeSeek - 1], "cmbMask2"),
          std::move(day),
          CountColumn(kDate, "Date"),
          CountColumn(kMonth, "Month"),
          TypedColumn(kStartTime, "Start Time", kTimeRule),
          TypedColumn(kEndTime, "End Time", kTimeRule),
          TypedColumn(kTypeSend, "Type Send", kSendRule),
          TypedColumn(kTypeSave, "Type Save", kSaveRule)};
}

RouteListEditor::RouteListEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(
          context, name, kTable, Columns(this),
          {.rows = RowCommands::kFixed, .most = kRoutesOfList, .sort_by = {{kGroup}, {kTypeSeek}}}),
      lists_(AddEntries<ListBox>({"lsRoute"}, "Route lists", LabelledRows(route_list::kTable).Names())),
      pages_(grid(), kRoutesOfList) {
  lists_.changed = [this] { SelectList(); };
  LayOut({}, {}, {layout::Group(lists_.caption, {layout::Of(lists_)})});
}

std::vector<std::vector<TableRow>> RouteListEditor::RoutesOf(const IniText& project) const {
  std::vector<std::vector<TableRow>> lists(kRouteLists);
  for (int list = 1; list <= kRouteLists; ++list) {
    const RouteRange range = RoutesOfList(project, list);
    for (int route = range.first; route <= range.last; ++route) {
      TableRow row = ShownRow(route, RowValue(project, kTable, route));
      if (!row.IsBlank()) lists[static_cast<std::size_t>(list) - 1].push_back(std::move(row));
    }
  }
  return lists;
}

void RouteListEditor::Load(const IniText& project) {
  groups_ = LabelledRows(group_out::kTable);
  offered_groups_ = OfferedGroups(project);
  pages_.Fill(RoutesOf(project));
  lists_.current = 0;
  pages_.Show(0);
}

/** Sorting a list when it is left does not count as a change by the user. */
void RouteListEditor::KeepList() {
  const bool loading = std::exchange(context().state.form_loading, true);
  Sort(true);
  pages_.Keep();
  context().state.form_loading = loading;
}

void RouteListEditor::SelectList() {
  if (lists_.current >= 0 && lists_.current != pages_.shown()) {
    KeepList();
    pages_.Show(lists_.current);
  }
  lists_.current = pages_.shown();
}

bool RouteListEditor::ShowPlace(std::string_view section, int row, int field) {
  if (SameName(section, route_list::kTable.section)) {
    if (row < 1 || row > kRouteLists) return false;
    ChooseEntry(lists_, row - 1);
    return true;
  }
  if (!SameName(section, kTable.section)) return false;
  for (int list = 0; list < pages_.count(); ++list) {
    const auto& routes = pages_.page(list);
    if (std::none_of(routes.begin(), routes.end(),
                     [&](const TableRow& route) { return route.origin == row; }))
      continue;
    ChooseEntry(lists_, list);
    int place = 1;
    while (place < grid().rows() && grid().row(place).origin != row) ++place;
    return grid().GoTo(place, std::max(field, 1));
  }
  return false;
}

void RouteListEditor::Write(IniEdit& project) {
  int count = 0;
  RowMoves emptied;
  for (int list = 1; list <= kRouteLists; ++list) {
    const std::vector<TableRow>& routes = pages_.page(list - 1);
    for (const TableRow& route : routes) project.Set(kTable.section, KeyOf(kTable, ++count), TextOf(route));
    if (routes.empty()) emptied[list] = 0;
    project.Set(route_list::kTable.section, KeyOf(route_list::kTable, list),
                std::to_string(count == 0 ? 0 : count + 1));
  }
  WillClear(InWords(project.base(), route_list::kTable,
                    RepairReferences(project, project.base(), route_list::kTable, emptied)));
  for (const IniText::Key& key : project.base().Keys(kTable.section)) {
    if (RouteOfKey(key.name) > count) project.DeleteKey(kTable.section, key.name);
  }
}

}  // namespace route_list_editor

extern const Editor kRouteListEditor{
    "14 - Route List", "route", {"frmRoute", "Route List"}, Make<route_list_editor::RouteListEditor>};

}  // namespace tarvok::editors
