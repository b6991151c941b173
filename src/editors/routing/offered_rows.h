#pragma once

#include <string>
#include <vector>

#include "editors/uses.h"
#include "store/ini_text.h"

namespace tarvok::editors {

/** The route lists that have routes of their own, by their names: each ends behind all lists in front of it. */
std::vector<std::string> OfferedLists(const IniText& project);
/** The numbers of the E1 links that have both their ports. */
std::vector<std::string> OfferedLinks(const IniText& project);
/** The groups out that have a member, by their names. */
std::vector<std::string> OfferedGroups(const IniText& project);
/** The directory numbers up to "Now", in the order of their rows. */
std::vector<std::string> OfferedNumbers(const IniText& project);

}  // namespace tarvok::editors
