#pragma once

#include <string>
#include <vector>

#include "store/ini_text.h"

namespace tarvok {

/** What differs between two projects, in words. All texts are bytes of the projects' code page. */
struct Difference {
  enum class Kind { kField, kOnlyInFirst, kOnlyInSecond };

  Kind kind = Kind::kField;
  std::string row;    // as people know it: "Port 012 (card 3, channel 4)"; a key that no statement knows: its
                      // section and name
  std::string field;  // as people know it; "" for a row as a whole and for a key that no statement knows
  std::string before;  // values as shown on screen; of a row that only one project has what stands in it
  std::string after;
};

/** What a value that is not set looks like. */
inline constexpr std::string_view kShownBlank = "(blank)";

/** All differences, in the order of a project's sections and rows. Values that mean the same do not differ;
 * nor do the spellings of the header's tag. */
std::vector<Difference> CompareProjects(const IniText& first, const IniText& second);

}  // namespace tarvok
