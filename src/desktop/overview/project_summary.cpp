#include "desktop/overview/project_summary.h"

#include <algorithm>

#include "sections/ports/assign.h"
#include "sections/ports/hunt_group.h"
#include "sections/ports/port_def.h"
#include "sections/routing/group_out.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::desktop {
namespace {

using PortSet = std::array<bool, kPortRows + 1>;

bool IsSet(std::string_view field) {
  return !field.empty() && field != kUnset;
}

const CardType* FindCardType(std::int64_t code) {
  const auto found = std::find_if(kCardTypes.begin(), kCardTypes.end(),
                                  [&](const CardType& type) { return type.code == code; });
  return found == kCardTypes.end() ? nullptr : &*found;
}

CardFamily FamilyOf(int card_code) {
  switch (card_code) {
    case 3:
    case 4:
    case 14:
      return CardFamily::kDigital;
    case 2:
    case 9:
    case 10:
    case 11:
      return CardFamily::kTrunk;
    case 5:
      return CardFamily::kEAndM;
    case 6:
      return CardFamily::kE1;
    case 8:
      return CardFamily::kVoiceMail;
    default:
      return CardFamily::kSlic;
  }
}

bool IsTrunk(CardFamily family) {
  return family == CardFamily::kTrunk || family == CardFamily::kEAndM || family == CardFamily::kE1;
}

/** Calls `take` for each member of the rows; returns the number of rows with members. */
template <typename Take>
int WalkLists(const IniText& project, const Table& table, int rows, Take take) {
  int used = 0;
  for (int number = 1; number <= rows; ++number) {
    bool any = false;
    ForEachField(RowValue(project, table, number), [&](std::string_view member) {
      const std::int64_t row = Val(member);
      if (row < 1) return;
      any = true;
      take(row);
    });
    if (any) ++used;
  }
  return used;
}

void AddPort(std::string_view value, bool in_group, ProjectSummary& summary) {
  const FieldList row(value);
  const std::int64_t slot = Val(row[port_def::kCard]);
  const CardType* type = FindCardType(Val(row[port_def::kType]));
  if (slot < 1 || slot > kSlots || type == nullptr) return;
  CardSummary& card = summary.slots[static_cast<std::size_t>(slot) - 1];
  if (card.empty()) {
    card.label = type->label();
    card.family = FamilyOf(type->code);
  }
  const bool used = in_group || IsSet(row[port_def::kNumber]);
  card.used.push_back(used);
  ++summary.ports;
  if (used) ++summary.ports_used;
  if (IsTrunk(FamilyOf(type->code))) ++summary.trunks;
}

}  // namespace

std::string_view FamilyName(CardFamily family) {
  switch (family) {
    case CardFamily::kDigital:
      return "Digital";
    case CardFamily::kTrunk:
      return "Trunk";
    case CardFamily::kEAndM:
      return "E & M";
    case CardFamily::kE1:
      return "E1";
    case CardFamily::kVoiceMail:
      return "Voice mail";
    case CardFamily::kSlic:
      break;
  }
  return "Analogue";
}

int CardSummary::ports_used() const {
  return static_cast<int>(std::count(used.begin(), used.end(), true));
}

ProjectSummary Summarize(const IniText& project) {
  ProjectSummary summary;
  PortSet in_group{};
  summary.groups_out = WalkLists(project, group_out::kTable, kGroupsOut, [&](std::int64_t port) {
    if (port <= kPortRows) in_group[static_cast<std::size_t>(port)] = true;
  });
  summary.hunt_groups = WalkLists(project, hunt_group::kTable, kHuntGroups, [](std::int64_t) {});
  for (int number = 1; number <= kPortRows; ++number) {
    const std::string_view value = RowValue(project, port_def::kTable, number);
    if (!value.empty()) AddPort(value, in_group[static_cast<std::size_t>(number)], summary);
  }
  for (int number = 1; number <= kAssignRows; ++number) {
    if (IsSet(GetField(RowValue(project, assign::kTable, number), assign::kNumber))) ++summary.numbers;
  }
  return summary;
}

}  // namespace tarvok::desktop
