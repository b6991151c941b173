#pragma once

#include <string>
#include <vector>

#include "project/place.h"
#include "project/uses.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** A step of a call's route as text, and the row that it comes from. */
struct PathNode {
  std::string text;
  Place place;                     // the row that defines the step
  std::vector<PathNode> children;  // where the call goes next; if several, they are tried in turn
};

/**
 * The outgoing path of a number that matches row `row` of the route map: its route list, the list's routes
 * with their conditions, and each route's group out with its trunks.
 *
 * All paths are built from the project's references alone; digit patterns are not interpreted. Missing
 * targets are shown as text.
 */
PathNode WayOut(const IniText& project, int row);

/** The path of an incoming call on port `port`, by day and by night: the port's incoming list, its
 * destinations in turn, and the ports that they ring. */
PathNode WayInOfPort(const IniText& project, int port);

/** The path of incoming calls to the DID numbers of row `row`: their E1 link, the range and its target. */
PathNode WayInOfDid(const IniText& project, int row);

}  // namespace tarvok::project
