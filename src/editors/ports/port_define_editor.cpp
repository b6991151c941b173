#include <algorithm>
#include <string>
#include <vector>

#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "editors/ports/card_insert.h"
#include "editors/ports/number_links.h"
#include "editors/used_by.h"
#include "sections/ports/account.h"
#include "sections/ports/assign.h"
#include "sections/ports/port_config.h"
#include "sections/ports/port_def.h"
#include "sections/registry.h"
#include "sections/routing/group_out.h"
#include "sections/routing/incoming_list.h"
#include "sections/routing/tenan.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace port_define_editor {

using namespace port_def;

/**
 * "Port System Define" (`frmPortSys_Def`): the cards of the exchange, one row per port. Saving sorts the
 * ports by card, updates all references to them, and links numbers to them.
 */
class PortDefineEditor : public FieldTableEditor {
 public:
  PortDefineEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  int RowsToShow(const IniText& project) const override { return RowsUpToNow(project, statement()); }
  void ShowRow(std::string_view value, TableRow& row) const override;
  std::string RowText(int row) const override;
  /** A row without card, channel and type is not a port, whatever else it holds. */
  bool IsRemoved(std::string_view value) const override;
  /** True if the row is a port that can be referenced. */
  bool KeepsReferences(int row) const override;
  bool MaySave() override;
  void BeforeWrite() override { Sort(true); }
  void Write(IniEdit& project) override;
  bool EndsWithoutProject() const override { return true; }

 private:
  static std::vector<FieldColumn> Columns(PortDefineEditor* form);

  void InsertChosenCard();
  std::string PortField(int row, int field) const;
  bool IsStored(int row) const;
  bool IsRowKept(int row) const;
  static int NamedNumber(const IniText& project, int port);
  std::vector<Reference> FollowPorts(IniEdit& project) const;
  NumberLinks LinksFor(const IniEdit& project) const;
  void MoveAccounts(IniEdit& project) const;
  void KeepLines(IniEdit& project) const;

  RowNames incoming_;
  RowNames numbers_;
  std::vector<std::string> number_fields_;  // by row from 0: the stored reference to its number
  ComboBox& card_;
  ComboBox& type_;
};

enum ColumnOf : int {
  kCardColumn = 1,
  kChannelColumn,
  kTypeColumn,
  kConfigColumn,
  kTenanColumn,
  kPickupColumn,
  kDayColumn,
  kNightColumn,
  kNumberColumn,
  kPasswordColumn,
  kExpandColumn,
};
constexpr std::size_t kColumns = kExpandColumn;

constexpr int kCards = 16;
constexpr int kMostPickup = 99;
constexpr std::string_view kNoRoom = "Cannot insert more card";
constexpr std::string_view kNoPort = "F|F|F";

/** A number of two digits, clamped to `most` when it is stored. */
FieldColumn ClampedColumn(int field, std::string title, EntryRule rule, int most) {
  FieldColumn column = TypedColumn(field, std::move(title), rule);
  column.stored = [most](std::string_view cell) {
    return Val(cell) > most ? std::to_string(most) : FieldText(cell);
  };
  return column;
}

FieldColumn ListColumn(int field, std::string title, std::string overlay) {
  return {.field = field,
          .column = {.title = std::move(title), .entry = Entry::kList, .overlay = std::move(overlay)}};
}

std::vector<FieldColumn> PortDefineEditor::Columns(PortDefineEditor* form) {
  FieldColumn type = ListColumn(kType, "Type", "cmbMask3");
  type.column.list = TypeLabels();
  type.stored = [](std::string_view cell) {
    const int code = TypeCode(cell);
    return code > 0 ? std::to_string(code) : std::string(kUnset);
  };
  FieldColumn day = ListColumn(kIncomingDay, "Incoming D", "cmbMask");
  FieldColumn night = ListColumn(kIncomingNight, "Incoming N", "cmbMask");
  for (FieldColumn* incoming : {&day, &night}) {
    incoming->column.list_of = [form](int) { return form->incoming_.Names(); };
    incoming->shown = [form](std::string_view stored) { return form->incoming_.NameOf(stored); };
    incoming->names = [form](const auto& /*cells*/) { return NamedRows{&form->incoming_, kRowWidth}; };
  }
  FieldColumn number = TypedColumn(kNumber, "Number", DigitsRule(6));
  number.shown = [form](std::string_view stored) { return form->numbers_.NameOf(stored); };
  number.names = [form](const auto& /*cells*/) { return NamedRows{&form->numbers_, kRowWidth}; };
  return {TypedColumn(kCard, "Card", DigitsRule(2)),
          TypedColumn(kChannel, "Channel", DigitsRule(2)),
          std::move(type),
          ClampedColumn(kConfig, "Config", NumberRule<kPortConfigRows>(), kPortConfigRows),
          ClampedColumn(kTenan, "Tenan", NumberRule<kTenants>(), kTenants),
          ClampedColumn(kPickupGroup, "Pickup Group", DigitsRule(2), kMostPickup),
          std::move(day),
          std::move(night),
          std::move(number),
          TypedColumn(kPassword, "PSW", DigitsRule(4)),
          ChoiceColumn(kExpand, "Expand T", kTable.fields[kExpand - 1], "cmbMask2")};
}

PortDefineEditor::PortDefineEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(
          context, name, kTable, Columns(this),
          {.rows = RowCommands::kGrow, .most = kPortRows, .sort_by = {{kCardColumn}, {kChannelColumn}}}),
      card_(AddEntries<ComboBox>({"cmbCard"}, "Card :", NumberedEntries(1, kCards))),
      type_(AddEntries<ComboBox>({"cmbType"}, "Type :", CardNames())) {
  for (ComboBox* list : {&card_, &type_}) {
    list->data = false;
    list->current = 0;
  }
  Control& insert = AddButton("cmbInsert", "&Insert", [this] { InsertChosenCard(); });
  LayOut({layout::Group("Auto Insert Port :",
                        {layout::Row({layout::Field("Card :", card_), layout::Field("Type :", type_),
                                      layout::Of(insert), layout::Stretch()})})});
}

void PortDefineEditor::Prepare(const IniText& project) {
  numbers_ = AssignNumbers(project);
  incoming_ = {};
  const Table& lists = incoming_list::kTable;
  for (int row = 1; row <= lists.rows.last; ++row) {
    std::string name = CellText(GetField(RowValue(project, lists, row), incoming_list::kName));
    const bool has_name = !name.empty();
    // A list without a name is not offered, but shown if a port refers to it, so that the user can clear it.
    incoming_.Add(row, has_name ? std::move(name) : "List " + std::to_string(row), has_name);
  }
}

void PortDefineEditor::ShowRow(std::string_view value, TableRow& row) const {
  const FieldList fields(value);
  row.cells[kTypeColumn - 1] = TypeLabel(Val(fields[kType]), Val(fields[kChannel]));
}

/** Inserts all ports of the chosen card. */
void PortDefineEditor::InsertChosenCard() {
  grid().LeaveCell();
  MarkChanged();
  std::vector<TableRow> rows;
  for (int row = 1; row <= grid().rows(); ++row) rows.push_back(grid().row(row));
  const std::string card(card_.Chosen());
  if (card.empty() || type_.current < 0) return;
  const bool replaces = FindCard(rows, card) < rows.size();
  std::size_t first = 0;
  if (!InsertCard(rows, card, type_.Chosen(), kColumns, first)) {
    context().questions.Box(kNoRoom, true);
    return;
  }
  if (replaces &&
      !context().questions.Ask("Card \"" + card + "\" already inserted.\nDo you want to replace?"))
    return;
  grid().ReplaceRows(std::move(rows));
  grid().GoTo(static_cast<int>(first) + 1, kCardColumn);
}

/** A field of a row as stored; fields without a column stay as they were. */
std::string PortDefineEditor::PortField(int row, int field) const {
  if (field == kNumber) return number_fields_[static_cast<std::size_t>(row) - 1];
  const auto& columns = field_columns();
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const FieldColumn& column) { return column.field == field; });
  return found == columns.end() ? FieldText(GetField(StoredBefore(row), field))
                                : FieldOf(grid().row(row), static_cast<std::size_t>(found - columns.begin()));
}

std::string PortDefineEditor::RowText(int row) const {
  std::string text;
  for (int field = kCard; field <= kExpand; ++field)
    text.append(field > kCard ? "|" : "").append(PortField(row, field));
  return text;
}

bool PortDefineEditor::IsRemoved(std::string_view value) const {
  return value.starts_with(kNoPort) || FieldTableEditor::IsRemoved(value);
}

bool PortDefineEditor::KeepsReferences(int row) const {
  return !grid().Cell(row, kCardColumn).empty() && !grid().Cell(row, kChannelColumn).empty();
}

bool PortDefineEditor::IsStored(int row) const {
  return !grid().Cell(row, kCardColumn).empty() || !grid().Cell(row, kChannelColumn).empty() ||
         !grid().Cell(row, kTypeColumn).empty();
}

/** Updates all references to ports. A group out needs the card of a port, a number only a stored row, and all
 * others need a complete port. Returns the references to removed ports. */
std::vector<Reference> PortDefineEditor::FollowPorts(IniEdit& project) const {
  const RowMoves whole = Moves();
  const RowMoves stored = Moves([this](int row) { return IsStored(row); });
  const RowMoves with_card = Moves([this](int row) { return !grid().Cell(row, kCardColumn).empty(); });
  std::vector<Reference> cleared;
  for (const Table* table : Tables()) {
    const RowMoves& moves = table == &assign::kTable      ? stored
                            : table == &group_out::kTable ? with_card
                                                          : whole;
    const std::vector<Reference> of_table =
        RepairReferencesOf(*table, project, project.base(), kTable, moves);
    cleared.insert(cleared.end(), of_table.begin(), of_table.end());
  }
  return cleared;
}

/** The number row that a port of the project names; 0 if none. */
int PortDefineEditor::NamedNumber(const IniText& project, int port) {
  const std::int64_t row = port > 0 ? Val(GetField(RowValue(project, kTable, port), kNumber)) : 0;
  return row >= 1 && row <= kAssignRows ? static_cast<int>(row) : 0;
}

/** In `project` the references to ports must already be updated. */
NumberLinks PortDefineEditor::LinksFor(const IniEdit& project) const {
  std::vector<LinkedPort> ports;
  for (int row = 1; row <= grid().rows(); ++row) {
    ports.push_back({row, NamedNumber(project.base(), grid().row(row).origin), IsStored(row),
                     grid().Cell(row, kNumberColumn)});
  }
  std::vector<int> left;
  for (const auto& [port, to] : Moves([this](int row) { return IsRowKept(row); })) {
    const int number = to > 0 ? 0 : NamedNumber(project.base(), port);
    if (number > 0 && NumberLinks::BelongsTo(project.base(), number, port)) left.push_back(number);
  }
  return {project, ports, left};
}

/** True if the row is stored or at least has a number. */
bool PortDefineEditor::IsRowKept(int row) const {
  return IsStored(row) || !grid().Cell(row, kNumberColumn).empty();
}

bool PortDefineEditor::MaySave() {
  if (project_file().empty()) return true;
  const std::shared_ptr<const IniText> now = context().store.Snapshot(project_file());
  IniEdit trial(*now);
  FollowPorts(trial);
  if (LinksFor(trial).all_fit()) return true;
  context().questions.Box(kOverLimit, false);
  return false;
}

void PortDefineEditor::Write(IniEdit& project) {
  std::vector<Reference> to_ports = FollowPorts(project);
  const NumberLinks links = LinksFor(project);
  number_fields_.clear();
  for (int row = 1; row <= grid().rows(); ++row) {
    const std::string& unseen = grid().Unseen(row, kNumberColumn);
    const int number = links.NumberOf(row);
    const bool stays = !unseen.empty() && !links.IsTaken(NamedNumber(project.base(), grid().row(row).origin));
    number_fields_.push_back(number > 0 ? Padded(number, kRowWidth) : stays ? unseen : std::string(kUnset));
  }
  MoveAccounts(project);
  // Rows that refer to numbers do not refer to ports, so this cannot undo the repairs above.
  const Table& numbers = assign::kTable;
  std::vector<Reference> to_numbers = RepairReferences(project, project.base(), numbers, links.gone());
  // A port and its number that go together do not lose each other.
  std::erase_if(to_ports, [&](const Reference& from) {
    return from.table == &numbers && links.gone().contains(from.row);
  });
  std::erase_if(to_numbers, [](const Reference& from) { return from.table == &kTable; });
  WillClear(InWords(project.base(), kTable, to_ports));
  WillClear(InWords(project.base(), numbers, to_numbers));
  WriteRows(project);
  project.Set(kTable.section, kNowKey, std::to_string(grid().rows()));
  links.Write(project);
  KeepLines(project);
}

/** Moves account numbers as if they named port rows, although they name number rows. */
void PortDefineEditor::MoveAccounts(IniEdit& project) const {
  const Table& accounts = account::kTable;
  const RowMoves moves = Moves();
  for (int number = 1; number <= kAccountRows; ++number) {
    const std::string_view row = RowValue(project.base(), accounts, number);
    const std::string_view named = GetField(row, account::kNumber);
    for (const auto& [from, to] : moves) {
      if (Padded(from, kRowWidth) != named) continue;
      project.Set(accounts.section, KeyOf(accounts, number),
                  WithField(row, account::kNumber, to > 0 ? Padded(to, kRowWidth) : std::string(kUnset)));
      break;
    }
  }
}

/** Removes ports that are not lines from the groups out. */
void PortDefineEditor::KeepLines(IniEdit& project) const {
  const Table& groups = group_out::kTable;
  const auto lines = groups.fields[0].target.stored;
  const auto is_line = [&](std::string_view member) {
    const auto port = static_cast<int>(std::clamp<std::int64_t>(Val(member), 0, kPortRows));
    const std::string row = project.Get(kTable.section, KeyOf(kTable, port));
    return std::find(lines.begin(), lines.end(), GetField(row, kType)) != lines.end();
  };
  bool any = false;
  for (int number = 1; number <= groups.rows.last; ++number) {
    const std::string members = project.Get(groups.section, KeyOf(groups, number));
    std::string left;
    int gone = 0;
    ForEachMember(members, [&](std::string_view member) {
      if (!is_line(member)) {
        ++gone;
        return;
      }
      left.append(left.empty() ? "" : "|").append(member);
    });
    if (gone == 0) continue;
    project.Set(groups.section, KeyOf(groups, number), left);
    any = true;
  }
  if (any) RecountMembers(project, groups);
}

}  // namespace port_define_editor

extern const Editor kPortDefineEditor{"2 - Port Define",
                                      "portdefine",
                                      {"frmPortSys_Def", "Port System Define", "frmPortDef"},
                                      Make<port_define_editor::PortDefineEditor>};

}  // namespace tarvok::editors
