#include "editors/ports/number_links.h"

#include <algorithm>

#include "editors/field_columns.h"
#include "sections/ports/assign.h"
#include "sections/ports/port_def.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace {

constexpr std::string_view kNoNumber = "F|F|F|F|F";

/** Types of numbers that a port may name although they belong to no port: hunt groups and bosses. */
constexpr std::string_view kSharedTypes[] = {"1", "4", "5", "6", "7"};

bool IsSet(std::string_view text) {
  return !text.empty() && text != kUnset;
}

}  // namespace

NumberLinks::NumberLinks(const IniEdit& project, const std::vector<LinkedPort>& ports,
                         const std::vector<int>& left)
    : rows_(kAssignRows + 1) {
  for (int row = 1; row <= kAssignRows; ++row)
    rows_[static_cast<std::size_t>(row)] = project.Get(assign::kTable.section, KeyOf(assign::kTable, row));
  FindOwners(ports);
  // Numbers that ports give up come first, so that another port can take them over with all references.
  for (const int row : left) {
    if (!owned_.contains(row) && IsSet(Field(row, assign::kNumber))) gone_[row] = 0;
  }
  for (const LinkedPort& port : ports) GiveUp(port);
  std::vector<const LinkedPort*> without_row;
  for (const LinkedPort& port : ports) {
    if (!port.number.empty() && !Link(port)) without_row.push_back(&port);
  }
  for (const LinkedPort* port : without_row) TakeFree(*port);
}

bool NumberLinks::BelongsTo(const IniText& project, int number, int port) {
  const std::string_view row = RowValue(project, assign::kTable, number);
  return GetField(row, assign::kType) == kPortType && Val(GetField(row, assign::kValue)) == port;
}

std::string_view NumberLinks::Field(int row, int field) const {
  return GetField(rows_[static_cast<std::size_t>(row)], field);
}

/** True if the row belongs to a port or to nothing yet. */
bool NumberLinks::IsForPorts(int row) const {
  const std::string_view type = Field(row, assign::kType);
  return !IsSet(type) || type == kPortType;
}

/** Finds the row of each port. If two rows refer to the same port, the one that the port names is its own. */
void NumberLinks::FindOwners(const std::vector<LinkedPort>& ports) {
  std::map<int, const LinkedPort*> usable;
  for (const LinkedPort& port : ports) {
    if (port.usable) usable[port.row] = &port;
  }
  for (int row = 1; row <= kAssignRows; ++row) {
    if (Field(row, assign::kType) != kPortType) continue;
    const auto port = usable.find(
        static_cast<int>(std::clamp<std::int64_t>(Val(Field(row, assign::kValue)), 0, kPortRows)));
    if (port == usable.end()) continue;
    if (!row_of_.contains(port->first) || port->second->named == row) row_of_[port->first] = row;
    owned_.insert(row);
  }
}

/** Handles a number that the user removed from a port or replaced by the number of a group or a boss. */
void NumberLinks::GiveUp(const LinkedPort& port) {
  const auto own = row_of_.find(port.row);
  if (own == row_of_.end() || own->second != port.named) return;
  const std::string_view before = Field(port.named, assign::kNumber);
  if (!IsSet(before) || before == port.number) return;
  if (!port.number.empty() && FindShared(port.number) == 0) return;
  gone_[own->second] = 0;
  owned_.erase(own->second);
  row_of_.erase(own);
}

bool NumberLinks::Link(const LinkedPort& port) {
  const auto own = row_of_.find(port.row);
  const bool has_own = own != row_of_.end();
  const bool as_before = port.named > 0 && Field(port.named, assign::kNumber) == port.number;
  if (has_own && Field(own->second, assign::kNumber) == port.number) {
    number_of_[port.row] = own->second;
  } else if (as_before && !gone_.contains(port.named) &&
             (has_own || owned_.contains(port.named) || !IsForPorts(port.named))) {
    number_of_[port.row] = port.named;  // it was not edited
  } else if (const int shared = as_before ? 0 : FindShared(port.number); shared > 0) {
    number_of_[port.row] = shared;  // the number stays that of a hunt group or a boss
  } else if (!port.usable) {
    number_of_[port.row] = FindUnowned(port);
  } else if (has_own) {
    Take(own->second, port);
  } else if (const int unowned = FindUnowned(port); unowned > 0) {
    gone_.erase(unowned);
    Take(unowned, port);
  } else {
    return false;
  }
  return true;
}

int NumberLinks::FindShared(const std::string& number) const {
  for (int row = 1; row <= kAssignRows; ++row) {
    const auto* type = std::find(std::begin(kSharedTypes), std::end(kSharedTypes), Field(row, assign::kType));
    if (type != std::end(kSharedTypes) && Field(row, assign::kNumber) == number) return row;
  }
  return 0;
}

/** A row with that number that belongs to no port; the row that the port names is preferred. */
int NumberLinks::FindUnowned(const LinkedPort& port) const {
  const auto fits = [&](int row) {
    return Field(row, assign::kNumber) == port.number && IsForPorts(row) && !owned_.contains(row);
  };
  if (port.named > 0 && fits(port.named)) return port.named;
  for (int row = 1; row <= kAssignRows; ++row) {
    if (fits(row)) return row;
  }
  return 0;
}

void NumberLinks::Take(int row, const LinkedPort& port) {
  std::string& text = rows_[static_cast<std::size_t>(row)];
  const std::string fields[] = {port.number, std::string(kPortType), Padded(port.row, kRowWidth)};
  if (text.empty()) text = kNoNumber;
  for (int field = assign::kNumber; field <= assign::kValue; ++field)
    text = PutField(text, field, fields[field - assign::kNumber]);
  owned_.insert(row);
  row_of_[port.row] = row;
  number_of_[port.row] = row;
  changed_.insert(row);
}

/** Takes the first row without a number. References to a number that was in this row are cleared. */
void NumberLinks::TakeFree(const LinkedPort& port) {
  for (int row = 1; row <= kAssignRows; ++row) {
    if (owned_.contains(row)) continue;
    const bool gone = gone_.contains(row);
    const bool free = IsForPorts(row) && !IsSet(Field(row, assign::kNumber));
    if (!gone && !free) continue;
    if (gone) rows_[static_cast<std::size_t>(row)] = kNoNumber;
    return Take(row, port);
  }
  all_fit_ = false;
}

int NumberLinks::NumberOf(int port) const {
  const auto found = number_of_.find(port);
  return found == number_of_.end() ? 0 : found->second;
}

void NumberLinks::Write(IniEdit& project) const {
  const Table& table = assign::kTable;
  for (const auto& [row, to] : gone_) {
    if (!changed_.contains(row)) project.Set(table.section, KeyOf(table, row), kNoNumber);
  }
  for (const int row : changed_)
    project.Set(table.section, KeyOf(table, row), rows_[static_cast<std::size_t>(row)]);
  // Rows above "Now" do not reach the exchange.
  if (!changed_.empty() && *changed_.rbegin() > Val(project.Get(table.section, kNowKey)))
    project.Set(table.section, kNowKey, std::to_string(*changed_.rbegin()));
}

}  // namespace tarvok::editors
