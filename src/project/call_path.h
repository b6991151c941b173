#pragma once

#include <string>
#include <vector>

#include "project/place.h"
#include "project/uses.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** A step of the way that a call takes, in people's words, and the row that says so. */
struct PathNode {
  std::string text;
  Place place;                     // its form edits the step
  std::vector<PathNode> children;  // where the call goes from here; several: in turn
};

/**
 * The way out of a number that matches row `row` of the route map: its route list, the list's routes with their
 * conditions, each route's group out and the trunks of that.
 *
 * All of these are built from the references of the project alone; what a pattern's letters mean is the
 * exchange's own. A reference to nothing is said in words.
 */
PathNode WayOut(const IniText& project, int row);

/** The way in of a call on port `port`, by day and by night: the incoming list that the port names, its
 * destinations in turn, and where the numbers among them ring. */
PathNode WayInOfPort(const IniText& project, int port);

/** The way in of the DID numbers of row `row`: the E1 link on which they come, the range, and where it goes. */
PathNode WayInOfDid(const IniText& project, int row);

}  // namespace tarvok::project
