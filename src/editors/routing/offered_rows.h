#pragma once

#include <string>
#include <vector>

#include "editors/uses.h"
#include "store/ini_text.h"

namespace tarvok::editors {

/** The names of the route lists with routes of their own, which are those that end after all previous
 * lists. */
std::vector<std::string> OfferedLists(const IniText& project);
/** The numbers of the E1 links with both ports set. */
std::vector<std::string> OfferedLinks(const IniText& project);
/** The names of the groups out with members. */
std::vector<std::string> OfferedGroups(const IniText& project);
/** The directory numbers up to "Now", in the order of their rows. */
std::vector<std::string> OfferedNumbers(const IniText& project);

}  // namespace tarvok::editors
