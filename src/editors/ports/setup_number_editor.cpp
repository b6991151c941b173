#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "editing/repeat_list.h"
#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "sections/ports/assign.h"
#include "sections/ports/boss.h"
#include "sections/ports/hunt_group.h"
#include "sections/ports/name.h"
#include "sections/ports/port_def.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace setup_number_editor {

/**
 * "Setup Number" (`frmExtension`): the numbering plan, with the sections `Assign` and `Name` in one table.
 * Saving sorts the rows by number and updates all references to them.
 */
class SetupNumberEditor : public FieldTableEditor {
 public:
  SetupNumberEditor(const EditorContext& context, const FormName& name);

  /** A place in `Name` is shown at the number with that name. */
  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Prepare(const IniText& project) override;
  int RowsToShow(const IniText& project) const override { return RowsUpToNow(project, statement()); }
  void ShowRow(std::string_view value, TableRow& row) const override;
  std::string RowText(int row) const override;
  /** A row without a number cannot be referenced. */
  bool KeepsReferences(int row) const override;
  bool MaySave() override;
  void BeforeWrite() override { Sort(true); }
  void Write(IniEdit& project) override;
  bool EndsWithoutProject() const override { return true; }

 private:
  static std::vector<FieldColumn> Columns(SetupNumberEditor* form);

  bool CheckNumbers();
  bool CheckPorts();
  Entry ValueEntry(int row) const;
  std::vector<std::string> ValueList(int row) const;
  void TypeChanged(int row);
  /** The port of a row's number, as stored; 0 if none. */
  int PortOf(int row) const;
  void WriteNames(IniEdit& project);
  void LinkPorts(IniEdit& project) const;
  void FollowSecretaries(IniEdit& project) const;

  RepeatList repeats_;
  RowNames ports_;
  RowNames names_;
  std::vector<std::string> name_texts_;  // by row from 0: the stored reference to its name
};

enum ColumnOf : int { kNumberColumn = 1, kTypeColumn, kValueColumn, kCompanyColumn, kNameColumn };

constexpr int kMostCompany = 4;
constexpr int kCallGroups = 99;
constexpr char kPortSign = '/';  // between card and channel

/** What the value of a type refers to. */
enum class ValueKind { kNothing, kPort, kCallGroup, kHuntGroup, kBoss };

struct NumberType {
  std::string_view code;
  ValueKind value;
};
/** In the order of the list, which differs from that of the codes. */
constexpr NumberType kTypes[] = {
    {"0", ValueKind::kPort},      {"2", ValueKind::kCallGroup}, {"3", ValueKind::kCallGroup},
    {"1", ValueKind::kHuntGroup}, {"4", ValueKind::kHuntGroup}, {"5", ValueKind::kHuntGroup},
    {"6", ValueKind::kHuntGroup}, {"7", ValueKind::kBoss},
};

std::string LabelOf(const NumberType& type) {
  return Canonical(assign::kTable.fields[assign::kType - 1], type.code);
}

ValueKind KindOf(std::string_view label) {
  if (label.empty()) return ValueKind::kNothing;
  for (const NumberType& type : kTypes) {
    if (LabelOf(type) == label) return type.value;
  }
  return ValueKind::kNothing;
}

bool IsPortText(std::string_view text) {
  return text.find(kPortSign) != std::string_view::npos;
}

/** The row that a reference names; 0 if none. */
int RowNamed(std::string_view stored, const Table& table) {
  const std::int64_t row = Val(stored);
  return row >= 1 && row <= table.rows.last ? static_cast<int>(row) : 0;
}

/** The port of a number row in the project; 0 if none. */
int StoredPort(const IniText& project, int number) {
  const FieldList row(RowValue(project, assign::kTable, number));
  return row[assign::kType] == kTypes[0].code ? RowNamed(row[assign::kValue], port_def::kTable) : 0;
}

/** The number row that a port names as its own; 0 if none. */
int NumberOfPort(const IniText& project, int port) {
  const std::string_view row = RowValue(project, port_def::kTable, port);
  return RowNamed(GetField(row, port_def::kNumber), assign::kTable);
}

void SetNumberOfPort(IniEdit& project, int port, std::string_view number) {
  const std::string key = KeyOf(port_def::kTable, port);
  const std::string row = project.Get(port_def::kTable.section, key);
  if (!row.empty()) project.Set(port_def::kTable.section, key, PutField(row, port_def::kNumber, number));
}

std::vector<FieldColumn> SetupNumberEditor::Columns(SetupNumberEditor* form) {
  FieldColumn type = ChoiceColumn(assign::kType, "Type", assign::kTable.fields[assign::kType - 1]);
  type.column.list.clear();
  for (const NumberType& offered : kTypes) type.column.list.push_back(LabelOf(offered));
  type.column.changed = [form](int row, const std::string&) { form->TypeChanged(row); };

  FieldColumn value = TypedColumn(assign::kValue, "Value", DigitsRule(2));
  value.column.overlay = "cmbMask2";
  value.column.entry = Entry::kEditList;  // the most that any row allows
  value.column.entry_of = [form](int row) { return form->ValueEntry(row); };
  value.column.list_of = [form](int row) { return form->ValueList(row); };
  value.names = [form](const std::vector<std::string>& cells) {
    const bool is_port = KindOf(cells[kTypeColumn - 1]) == ValueKind::kPort;
    return is_port ? NamedRows{&form->ports_, kRowWidth} : NamedRows();
  };

  FieldColumn company = TypedColumn(assign::kCompany, "Company", {.characters = "1234", .most = 1});
  company.stored = [](std::string_view cell) {
    return Val(cell) > kMostCompany ? std::to_string(kMostCompany) : FieldText(cell);
  };
  FieldColumn name = TypedColumn(assign::kName, "Name", TextRule(name::kTable.fields[0].high));
  name.column.rule.in_list = false;  // the row only holds the name's number, which is known later
  name.stored = [](std::string_view) { return std::string(kUnset); };
  return {TypedColumn(assign::kNumber, "Number", DigitsRule(6)), std::move(type), std::move(value),
          std::move(company), std::move(name)};
}

SetupNumberEditor::SetupNumberEditor(const EditorContext& context, const FormName& name)
    : FieldTableEditor(context, name, assign::kTable, Columns(this),
                       {.rows = RowCommands::kGrow, .most = kAssignRows, .sort_by = {{kNumberColumn}}}),
      repeats_(AddLabel({"lblRepeat"}, {}), AddEntries<ListBox>({"lsRepeat"}, "Repeats", {})) {
  Control& numbers = AddButton("cmdCheck", "Check &Number", [this] { CheckNumbers(); });
  Control& ports = AddButton("cmdChk_port", "Check &Port", [this] { CheckPorts(); });
  LayOut({repeats_.Place()}, {layout::Of(numbers), layout::Of(ports)});
}

bool SetupNumberEditor::ShowPlace(std::string_view section, int row, int field) {
  if (!SameName(section, name::kTable.section)) return FieldTableEditor::ShowPlace(section, row, field);
  for (int number = 1; number <= grid().rows(); ++number) {
    if (Val(GetField(StoredBefore(number), assign::kName)) == row) return grid().GoTo(number, kNameColumn);
  }
  return false;
}

void SetupNumberEditor::Prepare(const IniText& project) {
  ports_ = PortNames(project);
  names_ = {};
  for (int row = 1; row <= kNameRows; ++row) {
    const std::string_view text = RowValue(project, name::kTable, row);
    if (!text.empty()) names_.Add(row, std::string(text));
  }
}

void SetupNumberEditor::ShowRow(std::string_view value, TableRow& row) const {
  const FieldList fields(value);
  std::string& shown = row.cells[kValueColumn - 1];
  if (shown == "f") shown.clear();
  if (KindOf(row.cells[kTypeColumn - 1]) == ValueKind::kPort) shown = ports_.NameOf(shown);
  row.cells[kNameColumn - 1] = names_.NameOf(fields[assign::kName]);
}

Entry SetupNumberEditor::ValueEntry(int row) const {
  return KindOf(grid().Cell(row, kTypeColumn)) == ValueKind::kBoss ? Entry::kText : Entry::kList;
}

std::vector<std::string> SetupNumberEditor::ValueList(int row) const {
  switch (KindOf(grid().Cell(row, kTypeColumn))) {
    case ValueKind::kPort:
      return ports_.Names();
    case ValueKind::kCallGroup:
      return NumberedEntries(1, kCallGroups, 2);
    case ValueKind::kHuntGroup:
      return NumberedEntries(1, kHuntGroups);
    default:
      return {};
  }
}

/** Clears a value that the new type cannot have: only type Port has a port as its value. */
void SetupNumberEditor::TypeChanged(int row) {
  const bool to_port = KindOf(grid().Cell(row, kTypeColumn)) == ValueKind::kPort;
  if (to_port || IsPortText(grid().Cell(row, kValueColumn))) grid().EraseCell(row, kValueColumn);
}

bool SetupNumberEditor::CheckNumbers() {
  std::vector<std::string> numbers;
  for (int row = 1; row <= grid().rows(); ++row) numbers.push_back(grid().Cell(row, kNumberColumn));
  return repeats_.Show(std::move(numbers), "No repeat number", "Show repeat number :");
}

bool SetupNumberEditor::CheckPorts() {
  std::vector<std::string> ports;
  for (int row = 1; row <= grid().rows(); ++row) {
    const std::string& value = grid().Cell(row, kValueColumn);
    if (IsPortText(value)) ports.push_back(value);
  }
  return repeats_.Show(std::move(ports), "No repeat port", "Show repeat port :");
}

bool SetupNumberEditor::MaySave() {
  const bool ports = CheckPorts();
  const bool numbers = CheckNumbers();
  if (!numbers && !ports) return true;
  if (!numbers) CheckPorts();  // leave a list with repeats in view
  const std::string_view what = numbers && ports ? "numbers and ports" : numbers ? "numbers" : "ports";
  return context().questions.Ask(
      std::string("There are repeat ").append(what).append(". Do you still want to save?"));
}

bool SetupNumberEditor::KeepsReferences(int row) const {
  return !grid().Cell(row, kNumberColumn).empty();
}

int SetupNumberEditor::PortOf(int row) const {
  if (KindOf(grid().Cell(row, kTypeColumn)) != ValueKind::kPort) return 0;
  return RowNamed(FieldOf(grid().row(row), kValueColumn - 1), port_def::kTable);
}

std::string SetupNumberEditor::RowText(int row) const {
  return WithField(FieldTableEditor::RowText(row), assign::kName,
                   name_texts_[static_cast<std::size_t>(row) - 1]);
}

/** Writes names without gaps, in the order of their numbers. */
void SetupNumberEditor::WriteNames(IniEdit& project) {
  const Table& names = name::kTable;
  name_texts_.clear();
  int count = 0;
  for (int row = 1; row <= grid().rows(); ++row) {
    const std::string_view name = Trim(grid().Cell(row, kNameColumn));
    if (!name.empty()) project.Set(names.section, KeyOf(names, ++count), name);
    name_texts_.push_back(name.empty() ? std::string(kUnset) : Padded(count, names.rows.width));
  }
  project.Set(names.section, kNowKey, std::to_string(count));
  for (int number = count + 1; number <= kNameRows; ++number)
    project.DeleteKey(names.section, KeyOf(names, number));
}

void SetupNumberEditor::Write(IniEdit& project) {
  WriteNames(project);
  FieldTableEditor::Write(project);
  project.Set(statement().section, kNowKey, std::to_string(grid().rows()));
  LinkPorts(project);
  FollowSecretaries(project);
}

/** Makes each port name its number, and clears the number of ports whose number went to another one. */
void SetupNumberEditor::LinkPorts(IniEdit& project) const {
  for (int row = 1; row <= grid().rows(); ++row) {
    const int origin = grid().row(row).origin;
    const int before = origin > 0 ? StoredPort(project.base(), origin) : 0;
    const int port = PortOf(row);
    if (before > 0 && port > 0 && port != before && NumberOfPort(project.base(), before) == origin)
      SetNumberOfPort(project, before, kUnset);
  }
  for (int row = 1; row <= grid().rows(); ++row) {
    const int port = PortOf(row);
    if (port > 0 && KeepsReferences(row)) SetNumberOfPort(project, port, Padded(row, kRowWidth));
  }
}

/** A secretary is identified by its number: the pair follows the number to another port. */
void SetupNumberEditor::FollowSecretaries(IniEdit& project) const {
  const Table& bosses = boss::kTable;
  const RowMoves moves = Moves();
  std::map<int, int> row_of;  // by the number's row when loaded
  for (int row = 1; row <= grid().rows(); ++row) row_of[grid().row(row).origin] = row;
  for (int number = 1; number <= kBossRows; ++number) {
    const std::string_view pair = RowValue(project.base(), bosses, number);
    const auto port = static_cast<int>(Val(GetField(pair, boss::kSecretary)));
    if (port < 1 || port > kPortRows) continue;
    const int origin = NumberOfPort(project.base(), port);
    const std::string_view known_by =
        GetField(RowValue(project.base(), statement(), origin), assign::kNumber);
    if (CellText(known_by).empty()) continue;  // there was no secretary to follow
    const auto move = moves.find(origin);
    std::string follows;
    if (move != moves.end() && move->second == 0) {
      follows = kUnset;
    } else if (const auto row = row_of.find(origin); row != row_of.end()) {
      const int now = PortOf(row->second);
      if (now > 0 && now != StoredPort(project.base(), origin)) follows = Padded(now, kRowWidth);
    }
    if (!follows.empty())
      project.Set(bosses.section, KeyOf(bosses, number), PutField(pair, boss::kSecretary, follows));
  }
}

}  // namespace setup_number_editor

extern const Editor kSetupNumberEditor{"1 - Setup Number",
                                       "ext",
                                       {"frmExtension", "Setup Number"},
                                       Make<setup_number_editor::SetupNumberEditor>};

}  // namespace tarvok::editors
