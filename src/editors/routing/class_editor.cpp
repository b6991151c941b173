#include "editors/routing/class_editor.h"

#include <algorithm>
#include <utility>

#include "editors/used_by.h"
#include "project/references.h"
#include "sections/ports/port_config.h"
#include "sections/routing/class_digit.h"
#include "sections/routing/class_group.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::editors {

using Texts = std::vector<std::string>;

ClassEditor::ClassEditor(const EditorContext& context, const FormName& name, std::vector<Column> columns,
                         RowCommands commands, int rows)
    : TableForm(context, name, {.columns = std::move(columns), .rows = commands, .sort_by = {{.column = 0}}}),
      pages_(grid(), rows) {}

void ClassEditor::AddPages(ControlId id, std::string caption, std::vector<std::string> entries) {
  list_ = &AddEntries<ListBox>(std::move(id), std::move(caption), std::move(entries));
  list_->changed = [this] { SelectPage(); };
  LayOut({}, {}, {layout::Group(list_->caption, {layout::Of(*list_)})});
}

void ClassEditor::FillPages(const std::vector<std::vector<Texts>>& pages) {
  std::vector<std::vector<TableRow>> filled;
  filled.reserve(pages.size());
  for (const std::vector<Texts>& columns : pages) filled.push_back(RowsOf(columns));
  pages_.Fill(std::move(filled));
  list_->current = 0;
  pages_.Show(0);
}

std::vector<TableRow> ClassEditor::RowsOf(const std::vector<Texts>& columns) {
  std::vector<TableRow> rows;
  for (std::size_t column = 0; column < columns.size(); ++column) {
    for (std::size_t row = 0; row < columns[column].size(); ++row) {
      if (row == rows.size()) rows.push_back({.cells = Texts(columns.size())});
      rows[row].cells[column] = columns[column][row];
    }
  }
  return rows;
}

Texts ClassEditor::TextsOf(int page, int column) {
  Texts texts;
  for (const TableRow& row : pages_.page(page)) {
    const std::string& cell = row.cells[static_cast<std::size_t>(column)];
    if (!cell.empty()) texts.push_back(cell);
  }
  return texts;
}

/** Closes the gaps of each column by itself: cells of one row are not related. */
void ClassEditor::KeepPage() {
  pages_.Keep();
  std::vector<Texts> columns;
  columns.reserve(static_cast<std::size_t>(grid().columns()));
  for (int column = 0; column < grid().columns(); ++column)
    columns.push_back(TextsOf(pages_.shown(), column));
  pages_.page(pages_.shown()) = RowsOf(columns);
}

void ClassEditor::SelectPage() {
  if (list_->current >= 0 && list_->current != pages_.shown()) {
    KeepPage();
    pages_.Show(list_->current);
  }
  list_->current = pages_.shown();
}

bool ClassEditor::ShowPage(int page, int row) {
  if (page < 0 || page >= pages_.count()) return false;
  ChooseEntry(*list_, page);
  grid().GoTo(std::max(row, 1), 1);
  return true;
}

Texts ClassEditor::Classes(std::string_view list) {
  Texts classes;
  ForEachMember(list, [&](std::string_view member) {
    classes.push_back(Padded(Val(member), class_digit::kBanTable.rows.width));
  });
  return classes;
}

void ClassEditor::StoreList(IniEdit& project, const Table& table, int number, const Texts& texts,
                            Texts (*read)(std::string_view list)) {
  const std::string_view before = RowValue(project.base(), table, number);
  std::string list;
  for (const std::string& text : texts) list += (list.empty() ? "" : "|") + text;
  project.Set(table.section, KeyOf(table, number), texts == read(before) ? before : list);
}

void ClassEditor::LeaveEmptyGroups(IniEdit& project) {
  const Table& groups = class_group::kTable;
  const Table& profiles = port_config::kTable;
  std::vector<Reference> cleared;
  for (int number = 1; number <= kPortConfigRows; ++number) {
    std::string profile(RowValue(project.base(), profiles, number));
    for (const int field : {port_config::kServiceDay, port_config::kServiceNight}) {
      const std::int64_t group = Val(GetField(profile, field));
      if (group < 1 || group > kClassGroups) continue;
      const std::string classes = project.Get(groups.section, KeyOf(groups, static_cast<int>(group)));
      if (!Classes(classes).empty()) continue;
      profile = WithField(profile, field, kUnset);
      cleared.push_back({&profiles, number, field, static_cast<int>(group)});
    }
    if (!profile.empty()) project.Set(profiles.section, KeyOf(profiles, number), profile);
  }
  WillClear(InWords(project.base(), groups, cleared));
}

}  // namespace tarvok::editors
