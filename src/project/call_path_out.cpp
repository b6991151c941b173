// The path of an outgoing call.

#include <algorithm>
#include <vector>

#include "project/row_in_words.h"
#include "sections/ports/port_def.h"
#include "sections/routing/group_out.h"
#include "sections/routing/route.h"
#include "sections/routing/route_list.h"
#include "sections/routing/route_map_digit.h"

namespace tarvok::project {
namespace {

/** Adjacent ports of a card, shown as one step. */
struct TrunkRun {
  int first;  // port rows
  int last;
};

/** True if the port comes right after the other one on the same card. */
bool Continues(const RowInWords& port, const RowInWords& before) {
  return port.number() == before.number() + 1 && port.Text(port_def::kCard) == before.Text(port_def::kCard) &&
         port.Text(port_def::kType) == before.Text(port_def::kType) &&
         Val(port.Text(port_def::kChannel)) == Val(before.Text(port_def::kChannel)) + 1;
}

bool IsTrunk(const RowInWords& port) {
  const auto& types = group_out::kTable.fields[group_out::kMember - 1].target.stored;
  return std::find(types.begin(), types.end(), GetField(port.value(), port_def::kType)) != types.end();
}

PathNode TrunkNode(const IniText& project, const TrunkRun& run) {
  const RowInWords first(project, port_def::kTable, run.first);
  const RowInWords last(project, port_def::kTable, run.last);
  if (!first.Has(port_def::kCard) || !first.Has(port_def::kChannel))
    return first.Node("Port " + std::to_string(run.first) + " has no card and channel");
  std::string text = "Card " + first.Text(port_def::kCard);
  text += run.first == run.last
              ? ", channel " + first.Text(port_def::kChannel)
              : ", channels " + first.Text(port_def::kChannel) + " to " + last.Text(port_def::kChannel);
  text += " (" + first.Text(port_def::kType) + ")";
  if (!IsTrunk(first)) text += " is not a trunk";
  return first.Node(std::move(text));
}

PathNode GroupNode(const IniText& project, const RowInWords& route) {
  const int number = route.Target(route::kGroup, group_out::kTable);
  if (number == 0) {
    return route.Node(route.Has(route::kGroup) ? "The group out does not exist" : "No group out is set");
  }
  const RowInWords group(project, group_out::kTable, number);
  std::vector<TrunkRun> runs;
  ForEachMember(group.value(), [&](std::string_view member) {
    const auto port = static_cast<int>(std::min<std::int64_t>(Val(member), kPortRows + 1));
    const RowInWords now(project, port_def::kTable, port);
    if (!runs.empty() && Continues(now, RowInWords(project, port_def::kTable, runs.back().last))) {
      runs.back().last = port;
    } else {
      runs.push_back({port, port});
    }
  });
  PathNode node = group.Node(route.Text(route::kGroup));
  if (runs.empty()) node.text += " has no trunk";
  for (const TrunkRun& run : runs) node.children.push_back(TrunkNode(project, run));
  return node;
}

std::string Clock(const std::string& time) {
  return time.size() == 4 ? time.substr(0, 2) + ":" + time.substr(2) : time;
}

PathNode RouteNode(const IniText& project, int number, int turn) {
  const RowInWords route(project, route::kTable, number);
  std::string text;
  AddPart(text, "Route", std::to_string(turn));
  for (const int field : {route::kDay, route::kDate, route::kMonth}) {
    if (!route.Has(field)) continue;
    const std::string_view words[] = {"on", "date", "month"};
    AddPart(text, words[field - route::kDay], route.Text(field));
  }
  if (route.Has(route::kStartTime)) AddPart(text, "from", Clock(route.Text(route::kStartTime)));
  if (route.Has(route::kEndTime)) text += " to " + Clock(route.Text(route::kEndTime));
  if (route.Has(route::kTypeSeek)) AddPart(text, "seek", route.Text(route::kTypeSeek));
  if (route.Has(route::kTypeSend)) AddPart(text, "send", route.Text(route::kTypeSend));
  if (route.Has(route::kTypeSave)) AddPart(text, "save", route.Text(route::kTypeSave));
  PathNode node = route.Node(std::move(text));
  node.children.push_back(GroupNode(project, route));
  return node;
}

PathNode ListNode(const IniText& project, const RowInWords& map) {
  if (!map.Has(route_map_digit::kRouteList)) return map.Node("No route list is set");
  const std::string name = map.Text(route_map_digit::kRouteList);
  const auto& named = route_map_digit::kTable.fields[route_map_digit::kRouteList - 1].choices;
  const bool is_named =
      std::any_of(named.begin(), named.end(), [&](const Choice& choice) { return choice.shown == name; });
  if (is_named) return map.Node(name);
  const int number = map.Target(route_map_digit::kRouteList, route_list::kTable);
  if (number == 0) return map.Node("The route list does not exist");
  PathNode node = RowInWords(project, route_list::kTable, number).Node(name);
  const RouteRange range = RoutesOfList(project, number);
  for (int route = range.first; route <= range.last; ++route) {
    if (IsUnused(route::kTable, RowValue(project, route::kTable, route))) continue;
    node.children.push_back(RouteNode(project, route, static_cast<int>(node.children.size()) + 1));
  }
  if (node.children.empty()) node.text += " has no route";
  return node;
}

}  // namespace

PathNode WayOut(const IniText& project, int row) {
  using namespace route_map_digit;
  const RowInWords map(project, kTable, row);
  if (IsUnused(kTable, map.value())) return map.Node("Nothing is set in this row");
  std::string text;
  AddPart(text, map.Has(kDigit) ? "Digits" : "No digits", map.Text(kDigit));
  if (map.Has(kSendNumber)) AddPart(text, map.Text(kSendNumber));
  if (map.Text(kReleaseCo) == "1") AddPart(text, "release CO");
  if (map.Has(kTimeout)) AddPart(text, "timeout", map.Text(kTimeout));
  PathNode node = map.Node(std::move(text));
  node.children.push_back(ListNode(project, map));
  return node;
}

}  // namespace tarvok::project
