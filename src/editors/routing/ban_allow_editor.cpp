#include "editors/routing/ban_allow_editor.h"

#include <algorithm>
#include <utility>

#include "editors/field_columns.h"
#include "project/references.h"
#include "sections/ports/port_config.h"
#include "sections/routing/class_digit.h"
#include "sections/routing/class_group.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace {

using Texts = std::vector<std::string>;

constexpr int kRowsOfClass = 21;

Texts Pieces(std::string_view list) {
  Texts pieces;
  ForEachField(list, [&](std::string_view piece) { pieces.emplace_back(piece); });
  return pieces;
}

std::string ClassText(std::int64_t number) {
  return Padded(number, class_digit::kBanTable.rows.width);
}

/** The classes of a group, as they are written. */
Texts Classes(std::string_view list) {
  Texts classes;
  ForEachMember(list, [&](std::string_view member) { classes.push_back(ClassText(Val(member))); });
  return classes;
}

/** Writes a list; one that holds what it held before, as `read` reads it, stays as it stands. */
void StoreList(IniEdit& project, const Table& table, int number, const Texts& texts,
               Texts (*read)(std::string_view list)) {
  const std::string_view before = RowValue(project.base(), table, number);
  std::string list;
  for (const std::string& text : texts) list += (list.empty() ? "" : "|") + text;
  project.Set(table.section, KeyOf(table, number), texts == read(before) ? before : list);
}

/** A profile names no group for the day or the night that has no class. What it names for a cut hold stays. */
void LeaveEmptyGroups(IniEdit& project) {
  const Table& groups = class_group::kTable;
  const Table& profiles = port_config::kTable;
  for (int number = 1; number <= kPortConfigRows; ++number) {
    std::string profile(RowValue(project.base(), profiles, number));
    for (const int field : {port_config::kServiceDay, port_config::kServiceNight}) {
      const std::int64_t group = Val(GetField(profile, field));
      if (group < 1 || group > kClassGroups) continue;
      const std::string classes = project.Get(groups.section, KeyOf(groups, static_cast<int>(group)));
      if (Classes(classes).empty()) profile = WithField(profile, field, kUnset);
    }
    if (!profile.empty()) project.Set(profiles.section, KeyOf(profiles, number), profile);
  }
}

std::string ClassName(std::string_view stored) {
  return std::string(class_digit::kBanTable.label).append(" ").append(std::to_string(Val(stored)));
}

std::string ClassOf(std::string_view name) {
  const std::size_t number = class_digit::kBanTable.label.size();
  return ClassText(Val(name.substr(std::min(number, name.size()))));
}

}  // namespace

ClassEditor::ClassEditor(const EditorContext& context, const FormName& name, std::vector<Column> columns,
                         RowCommands commands, int rows)
    : TableForm(context, name, {.columns = std::move(columns), .rows = commands, .sort_by = {{.column = 0}}}),
      pages_(grid(), rows) {}

void ClassEditor::AddPages(ControlId id, std::string caption, std::vector<std::string> entries) {
  list_ = &AddList(std::move(id), std::move(caption), std::move(entries));
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

/** Each column closes up by itself: what stands side by side has nothing to do with each other. */
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

std::vector<Column> BanAllowEditor::Columns(BanAllowEditor* form) {
  std::vector<Column> columns;
  for (const Table* table : {&class_digit::kBanTable, &class_digit::kAllowTable}) {
    const int number = static_cast<int>(columns.size()) + 1;
    const auto entry_of = [form, number, most = table->members.most](int row) {
      return form->IsFull(number, most) && form->grid().Cell(row, number).empty() ? Entry::kReadOnly
                                                                                  : Entry::kText;
    };
    columns.push_back({.title = std::string(table->fields[0].name),
                       .rule = {.characters = "0123456789*#"},
                       .entry_of = entry_of,
                       .overlay = "txtMask"});
  }
  return columns;
}

BanAllowEditor::BanAllowEditor(const EditorContext& context, const FormName& name)
    : ClassEditor(context, name, Columns(this), RowCommands::kNone, kRowsOfClass) {
  AddPages({"lsCOR"}, "Classes", LabelledRows(class_digit::kBanTable).Names());
}

bool BanAllowEditor::IsFull(int column, int most) const {
  int numbers = 0;
  for (int row = 1; row <= grid().rows(); ++row) numbers += grid().Cell(row, column).empty() ? 0 : 1;
  return numbers >= most;
}

void BanAllowEditor::Load(const IniText& project) {
  std::vector<std::vector<Texts>> pages;
  for (int number = 1; number <= kClasses; ++number) {
    pages.push_back({Pieces(RowValue(project, class_digit::kBanTable, number)),
                     Pieces(RowValue(project, class_digit::kAllowTable, number))});
  }
  FillPages(pages);
}

void BanAllowEditor::Write(IniEdit& project) {
  RowMoves emptied;
  for (int number = 1; number <= kClasses; ++number) {
    const Texts banned = TextsOf(number - 1, 0);
    const Texts allowed = TextsOf(number - 1, 1);
    StoreList(project, class_digit::kBanTable, number, banned, Pieces);
    StoreList(project, class_digit::kAllowTable, number, allowed, Pieces);
    if (banned.empty() && allowed.empty()) emptied[number] = 0;
  }
  RepairReferences(project, project.base(), class_digit::kBanTable, emptied);
  LeaveEmptyGroups(project);
}

bool BanAllowEditor::ShowPlace(std::string_view section, int row, int field) {
  return SameName(section, class_digit::kBanTable.section) && ShowPage(row - 1, field);
}

std::vector<Column> BanNumberGroupEditor::Columns(BanNumberGroupEditor* form) {
  return {{.title = std::string(class_group::kTable.fields[0].name),
           .entry = Entry::kList,
           .list_of = [form](int) { return form->offered_; },
           .overlay = "cmbMask"}};
}

BanNumberGroupEditor::BanNumberGroupEditor(const EditorContext& context, const FormName& name)
    : ClassEditor(context, name, Columns(this), RowCommands::kFixed, class_group::kTable.members.most) {
  AddPages({"lsCORGroup"}, "Groups", LabelledRows(class_group::kTable).Names());
}

void BanNumberGroupEditor::Load(const IniText& project) {
  offered_.clear();
  for (int number = 1; number <= kClasses; ++number) {
    if (!RowValue(project, class_digit::kBanTable, number).empty() ||
        !RowValue(project, class_digit::kAllowTable, number).empty())
      offered_.push_back(ClassName(std::to_string(number)));
  }
  std::vector<std::vector<Texts>> pages;
  for (int number = 1; number <= kClassGroups; ++number) {
    Texts names;
    for (const std::string& stored : Classes(RowValue(project, class_group::kTable, number)))
      names.push_back(ClassName(stored));
    pages.push_back({std::move(names)});
  }
  FillPages(pages);
}

void BanNumberGroupEditor::Write(IniEdit& project) {
  for (int number = 1; number <= kClassGroups; ++number) {
    Texts classes;
    for (const std::string& name : TextsOf(number - 1, 0)) classes.push_back(ClassOf(name));
    StoreList(project, class_group::kTable, number, classes, Classes);
  }
  LeaveEmptyGroups(project);
}

bool BanNumberGroupEditor::ShowPlace(std::string_view section, int row, int field) {
  return SameName(section, class_group::kTable.section) && ShowPage(row - 1, field);
}

}  // namespace tarvok::editors
