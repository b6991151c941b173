// The path of an incoming call.

#include <algorithm>

#include "project/row_in_words.h"
#include "sections/ports/assign.h"
#include "sections/ports/boss.h"
#include "sections/ports/hunt_group.h"
#include "sections/ports/port_def.h"
#include "sections/routing/did_redirect.h"
#include "sections/routing/e1_map.h"
#include "sections/routing/incoming_list.h"
#include "sections/routing/route_list.h"
#include "sections/routing/route_map_digit.h"

namespace tarvok::project {
namespace {

std::string PortText(const RowInWords& port) {
  if (!port.Has(port_def::kCard) || !port.Has(port_def::kChannel))
    return "Port " + std::to_string(port.number()) + " has no card and channel";
  std::string text;
  AddPart(text, "Card", port.Text(port_def::kCard));
  AddPart(text, "channel", port.Text(port_def::kChannel));
  return port.Has(port_def::kType) ? text + " (" + port.Text(port_def::kType) + ")" : text;
}

PathNode NumberNode(const IniText& project, int row, bool with_members);

/** Adds what the number reaches. The members of a hunt group are numbers, too, but are not followed further,
 * since a group may be a member of itself. */
void AddMeaning(const IniText& project, const RowInWords& number, bool with_members, PathNode& node) {
  if (const int port = number.Target(assign::kValue, port_def::kTable)) {
    const RowInWords row(project, port_def::kTable, port);
    node.children.push_back(row.Node(PortText(row)));
  } else if (const int group = number.Target(assign::kValue, hunt_group::kTable)) {
    const RowInWords row(project, hunt_group::kTable, group);
    PathNode hunt = row.Node("Hunt Group " + std::to_string(group));
    if (with_members) {
      ForEachMember(row.value(), [&](std::string_view member) {
        const auto at = static_cast<int>(std::min<std::int64_t>(Val(member), kAssignRows + 1));
        hunt.children.push_back(NumberNode(project, at, false));
      });
      if (hunt.children.empty()) hunt.text += " has no member";
    }
    node.children.push_back(std::move(hunt));
  } else if (const int boss = number.Target(assign::kValue, boss::kTable)) {
    node.children.push_back(RowInWords(project, boss::kTable, boss).Node("Boss " + std::to_string(boss)));
  } else if (number.Has(assign::kValue)) {
    node.text += " " + number.Text(assign::kValue);
  } else {
    node.text += " is not assigned to anything";
  }
}

PathNode NumberNode(const IniText& project, int row, bool with_members) {
  const RowInWords number(project, assign::kTable, row);
  if (!number.Has(assign::kNumber))
    return number.Node("Number row " + std::to_string(row) + " has no number");
  std::string text = "Number " + number.Text(assign::kNumber);
  if (number.Has(assign::kName)) text += " " + number.Text(assign::kName);
  if (number.Has(assign::kType)) AddPart(text, number.Text(assign::kType));
  PathNode node = number.Node(std::move(text));
  AddMeaning(project, number, with_members, node);
  return node;
}

PathNode DidTarget(const IniText& project, const RowInWords& range) {
  if (!range.Has(did_redirect::kMapType)) return range.Node("No target is set");
  const std::string type = range.Text(did_redirect::kMapType);
  if (const int number = range.Target(did_redirect::kMapNumber, assign::kTable))
    return NumberNode(project, number, true);
  if (const int list = range.Target(did_redirect::kMapNumber, route_list::kTable)) {
    const RouteRange routes = RoutesOfList(project, list);
    const std::string none = routes.last < routes.first ? " has no route" : "";
    return RowInWords(project, route_list::kTable, list).Node(range.Text(did_redirect::kMapNumber) + none);
  }
  // Either the type needs no target or the target is missing.
  const auto& meanings = did_redirect::kTable.fields[did_redirect::kMapNumber - 1].meanings;
  const std::string_view stored = GetField(range.value(), did_redirect::kMapType);
  const bool needs_one =
      std::any_of(meanings.begin(), meanings.end(), [&](const Meaning& m) { return m.when == stored; });
  return range.Node(needs_one ? type + ", but none is set" : type);
}

PathNode RangeNode(const IniText& project, const RowInWords& range) {
  const std::string first = range.Text(did_redirect::kDidStart);
  const std::string last = range.Text(did_redirect::kDidEnd);
  std::string text =
      first.empty() && last.empty() ? "No DID numbers" : "DID " + (first.empty() ? last : first);
  if (!first.empty() && !last.empty() && first != last) text += " to " + last;
  PathNode node = range.Node(std::move(text));
  node.children.push_back(DidTarget(project, range));
  return node;
}

PathNode LinkNode(const IniText& project, int number) {
  const RowInWords link(project, e1_map::kTable, number);
  std::string text = "E1 " + std::to_string(number);
  if (link.Has(e1_map::kStart) && link.Has(e1_map::kEnd)) {
    AddPart(text, "ports", link.Text(e1_map::kStart) + " to " + link.Text(e1_map::kEnd));
    if (link.Has(e1_map::kMode)) AddPart(text, link.Text(e1_map::kMode));
  } else {
    text += " has no ports";
  }
  return link.Node(std::move(text));
}

/** The E1 link whose range of channels contains the port; 0 if none. */
int LinkOfPort(const IniText& project, const RowInWords& port) {
  for (int number = 1; number <= kE1Links; ++number) {
    const RowInWords link(project, e1_map::kTable, number);
    const RowInWords start(project, port_def::kTable, link.Target(e1_map::kStart, port_def::kTable));
    const RowInWords end(project, port_def::kTable, link.Target(e1_map::kEnd, port_def::kTable));
    const std::int64_t channel = Val(port.Text(port_def::kChannel));
    if (start.Has(port_def::kCard) && start.Text(port_def::kCard) == port.Text(port_def::kCard) &&
        channel >= Val(start.Text(port_def::kChannel)) && channel <= Val(end.Text(port_def::kChannel)))
      return number;
  }
  return 0;
}

/** Adds the DID ranges of the link that the port belongs to. */
void AddRanges(const IniText& project, const RowInWords& port, PathNode& node) {
  const int number = LinkOfPort(project, port);
  if (number == 0) {
    node.text += ", but the port belongs to no E1 link";
    return;
  }
  PathNode link = LinkNode(project, number);
  for (int row = 1; row <= kDidRows; ++row) {
    const RowInWords range(project, did_redirect::kTable, row);
    if (range.Target(did_redirect::kLink, e1_map::kTable) != number) continue;
    PathNode step = RangeNode(project, range);
    step.text += ": " + step.children.front().text;
    step.children.clear();  // the range has a path of its own
    link.children.push_back(std::move(step));
  }
  if (link.children.empty()) AddPart(link.text, "no DID numbers");
  node.children.push_back(std::move(link));
}

PathNode DestinationNode(const IniText& project, const RowInWords& port, const RowInWords& list, int field,
                         std::string_view turn) {
  if (const int number = list.Target(field, assign::kTable)) {
    PathNode node = NumberNode(project, number, true);
    node.text = std::string(turn).append(": ").append(node.text);
    return node;
  }
  PathNode node = list.Node(std::string(turn).append(": ").append(list.Text(field)));
  if (GetField(list.value(), field) == incoming_list::kDidTarget) AddRanges(project, port, node);
  return node;
}

PathNode IncomingNode(const IniText& project, const RowInWords& port, int field, std::string_view when) {
  using namespace incoming_list;
  const int number = port.Target(field, kTable);
  const std::string at(when);
  if (number == 0) {
    return port.Node(at +
                     (port.Has(field) ? ": the incoming list does not exist" : ": no incoming list is set"));
  }
  const RowInWords list(project, kTable, number);
  std::string text = at + ": Incoming List " + std::to_string(number);
  if (list.Has(kName)) AddPart(text, list.Text(kName));
  if (list.Has(kTimeOut)) AddPart(text, "time out", list.Text(kTimeOut));
  PathNode node = list.Node(std::move(text));
  constexpr std::string_view kTurns[] = {"First", "Second", "Third"};
  for (const int destination : {kNum1, kNum2, kNum3}) {
    if (list.Has(destination))
      node.children.push_back(DestinationNode(project, port, list, destination, kTurns[destination - kNum1]));
  }
  if (node.children.empty()) node.text += " has no destination";
  return node;
}

}  // namespace

PathNode WayInOfPort(const IniText& project, int port) {
  const RowInWords row(project, port_def::kTable, port);
  PathNode node = row.Node(PortText(row));
  const bool same =
      GetField(row.value(), port_def::kIncomingDay) == GetField(row.value(), port_def::kIncomingNight);
  if (same) {
    node.children.push_back(IncomingNode(project, row, port_def::kIncomingDay, "By day and night"));
  } else {
    node.children.push_back(IncomingNode(project, row, port_def::kIncomingDay, "By day"));
    node.children.push_back(IncomingNode(project, row, port_def::kIncomingNight, "By night"));
  }
  return node;
}

PathNode WayInOfDid(const IniText& project, int row) {
  const RowInWords range(project, did_redirect::kTable, row);
  if (IsUnused(did_redirect::kTable, range.value())) return range.Node("Nothing is set in this row");
  const int link = range.Target(did_redirect::kLink, e1_map::kTable);
  PathNode node = link > 0 ? LinkNode(project, link)
                           : range.Node(range.Has(did_redirect::kLink) ? "The E1 link does not exist"
                                                                       : "No E1 link is set");
  node.children.push_back(RangeNode(project, range));
  return node;
}

}  // namespace tarvok::project
